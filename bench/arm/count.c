/*
 * A QEMU plugin that counts the instructions which a user program executes, and writes their number
 * to standard error at the end. Debian has no header for plugins, so what is used of the interface,
 * version 1, is declared here.
 */
#include <inttypes.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

typedef uint64_t qemu_plugin_id_t;
typedef struct qemu_info_t qemu_info_t;
struct qemu_plugin_tb;
enum { QEMU_PLUGIN_INLINE_ADD_U64 = 0 };

size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb* block);
void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id,
                                           void (*callback)(qemu_plugin_id_t id,
                                                            struct qemu_plugin_tb* block));
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb* block, int operation,
                                              void* counter, uint64_t addend);
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t id,
                                    void (*callback)(qemu_plugin_id_t id, void* data), void* data);

__attribute__((visibility("default"))) int qemu_plugin_version = 1;

static uint64_t g_instructions;

/* A block runs from its first instruction to its last: its length is added each time. */
static void OnTranslation(qemu_plugin_id_t id, struct qemu_plugin_tb* block) {
    (void)id;
    qemu_plugin_register_vcpu_tb_exec_inline(block, QEMU_PLUGIN_INLINE_ADD_U64, &g_instructions,
                                             qemu_plugin_tb_n_insns(block));
}

static void OnExit(qemu_plugin_id_t id, void* data) {
    (void)id;
    (void)data;
    fprintf(stderr, "instructions: %" PRIu64 "\n", g_instructions);
}

__attribute__((visibility("default"))) int qemu_plugin_install(qemu_plugin_id_t id,
                                                               const qemu_info_t* info, int argc,
                                                               char** argv) {
    (void)info;
    (void)argc;
    (void)argv;
    qemu_plugin_register_vcpu_tb_trans_cb(id, OnTranslation);
    qemu_plugin_register_atexit_cb(id, OnExit, NULL);
    return 0;
}
