include $(sort $(wildcard $(BR2_EXTERNAL_ORVATOOL_PATH)/package/*/*.mk))
