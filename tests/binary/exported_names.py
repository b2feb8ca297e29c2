"""The names that other programs find in the executable: their copy, kept apart from the sources.

A name that is taken out of tool/exports.list and of its header's visible part leaves nothing else
behind that could miss it, but programs that nobody here sees.
"""

NAMES = """
_daylight _dstbias _timezone _ytab CheckFileExists ChrisTmToLocalTm ChrisToLocalTime
CloseChildProcFd ConvertCompileDate ConvertStrToInt CopyFileContent CopyFolder CreateMulvPath
Decode16 DecodeTime DeFormatDate digitvalue DiskSpaceUsed EncodeTime ExtractValue ExtractValueInt
FileCopy FmtDateToStandardDate FormatDate GetAssignEnvPath GetClockDT GetCurDate GetCurDateTime
GetCurTime GetCurTimeNoSec GetEnvFilePath GetFileCountOfFolder GetIslamicMonthDay GetLocalTime
GetMac GetMaxDaysOfGregoMonth GetMaxDaysOfMonth GetPersianMonthDay GetSysSecond GetTime
HourTimeFormatTo24Mode HourTimeFormatToCurMode in_chksum IntTimeToStrTime IsLeapYear
IsLeapYearByCalendar JudgePicFile LocalTimeToChris LocalTmToChrisTm MergeSort mktime_1
OldDecodeTime OldEncodeTime OldStrTimeToSec ParseDate ParseDateNoYear ParseStrToTTime ParseTime
ParseTimeNoSec PrintLog SecToHMTime SecToYMDTime set_mac_addr SplitByChar SplitKeyValueByChar
StandardDateToFmtDate str2Hex str2int str2mac Str2Upcase StrTimeToSec StrTimeToTm StrTimeToTTime
SyncSysTime systemEx TimeTimeToInt TrCloseFolder TrGetFileName TrGetTickCount TrimAroundSpace
Trmmsleep TrOpenFolder TTimeToStr TTimeToStrTime
""".split()
