/*
 * A board driver for the tests: serves a character device through the kernel's CUSE protocol.
 *
 *   devices NAME FOLDER        /dev/NAME, until the program is ended
 *
 * FOLDER/flash     the NAND: pages without spare bytes; a file of any size
 * FOLDER/answers   lines "request first result value": what a request whose first word is `first`
 *                  gives, below 0 an error number; -1 stands for any first word. A request that
 *                  gives 0 puts `value` into the second word. Without a line it gives 0 and 0.
 * FOLDER/log       gets a line for each event: "NAME open", "NAME close" and "NAME request first
 *                  second data", where data is up to 8 bytes in hexadecimal, "-" for zeroes
 *
 * Several devices may share a folder: the log then shows the order of their requests.
 *
 * The protocol is simple enough to be spoken without a library: each message is read whole from
 * /dev/cuse and answered by one write. The request numbers of these drivers carry no size, so the
 * kernel sends them without their record first and is told what to fetch.
 */
#include <errno.h>
#include <fcntl.h>
#include <linux/fuse.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/uio.h>
#include <unistd.h>

enum {
    kPageSize = 2048,
    kPagesPerBlock = 64,
    kShownBytes = 8,
    kMessageSize = 8192, /* the least that the kernel wants to be read */
    kMaxWrite = 4096,
    kMaxAnswers = 64,
    kAnyWord = -1,
};

enum { kReadPage = 11, kWritePage = 12, kEraseBlock = 15 };

struct Record {
    uint32_t first;
    uint32_t second;
    uint8_t data[kPageSize];
};

struct Answer {
    int request, first, result, value;
};

static const char* name;
static int cuse = -1;
static int flash = -1;
static FILE* event_log;
static struct Answer answers[kMaxAnswers];
static int answer_count;

static void Require(int condition, const char* what) {
    if (!condition) {
        perror(what);
        exit(1);
    }
}

static int OpenInFolder(const char* folder, const char* file, int flags) {
    char path[256];
    snprintf(path, sizeof path, "%s/%s", folder, file);
    const int descriptor = open(path, flags | O_CREAT, 0644);
    Require(descriptor >= 0, path);
    return descriptor;
}

static void ReadAnswers(int descriptor) {
    FILE* const stream = fdopen(descriptor, "r");
    Require(stream != NULL, "answers");
    struct Answer* next = answers;
    while (answer_count < kMaxAnswers && fscanf(stream, "%d %d %d %d", &next->request, &next->first,
                                                &next->result, &next->value) == 4) {
        ++next;
        ++answer_count;
    }
    fclose(stream);
}

static struct Answer FindAnswer(uint32_t request, uint32_t first) {
    for (int i = 0; i < answer_count; ++i) {
        if ((uint32_t)answers[i].request == request &&
            (answers[i].first == kAnyWord || (uint32_t)answers[i].first == first)) {
            return answers[i];
        }
    }
    return (struct Answer){0, 0, 0, 0};
}

/* The flash: erasing sets all bits of a block, and writing a page can only clear some. */

static int ReadPage(uint32_t page, uint8_t* data) {
    const ssize_t size = pread(flash, data, kPageSize, (off_t)page * kPageSize);
    return size == kPageSize ? 0 : -EIO; /* behind the end of the flash */
}

static void StorePage(uint32_t page, const uint8_t* data) {
    const ssize_t size = pwrite(flash, data, kPageSize, (off_t)page * kPageSize);
    Require(size == kPageSize, "storing a page");
}

static int WritePage(uint32_t page, const uint8_t* data) {
    uint8_t cells[kPageSize];
    const int result = ReadPage(page, cells);
    if (result == 0) {
        for (int i = 0; i < kPageSize; ++i) {
            cells[i] &= data[i];
        }
        StorePage(page, cells);
    }
    return result;
}

static int EraseBlock(uint32_t block) {
    uint8_t cells[kPageSize];
    const uint32_t first = block * kPagesPerBlock;
    const int result = ReadPage(first + kPagesPerBlock - 1, cells);
    memset(cells, 0xFF, sizeof cells);
    for (uint32_t i = 0; result == 0 && i < kPagesPerBlock; ++i) {
        StorePage(first + i, cells);
    }
    return result;
}

static void LogRequest(uint32_t request, const struct Record* record) {
    fprintf(event_log, "%s %u %u %u ", name, request, record->first, record->second);
    int length = kPageSize;
    while (length > 0 && record->data[length - 1] == 0) {
        --length;
    }
    for (int i = 0; i < length && i < kShownBytes; ++i) {
        fprintf(event_log, "%02x", record->data[i]);
    }
    fputs(length == 0 ? "-\n" : "\n", event_log);
}

static int Serve(uint32_t request, struct Record* record) {
    const struct Answer answer = FindAnswer(request, record->first);
    LogRequest(request, record);
    if (answer.result != 0) {
        return answer.result;
    }
    record->second = (uint32_t)answer.value;
    switch (request) {
        case kReadPage:
            return ReadPage(record->first, record->data);
        case kWritePage:
            return WritePage(record->first, record->data);
        case kEraseBlock:
            return EraseBlock(record->first);
        default:
            return 0;
    }
}

/* The protocol. */

static void Reply(uint64_t unique, int error, const void* head, size_t head_size, const void* body,
                  size_t body_size) {
    struct fuse_out_header out = {(uint32_t)(sizeof out + head_size + body_size), error, unique};
    const struct iovec parts[] = {
        {&out, sizeof out}, {(void*)head, head_size}, {(void*)body, body_size}};
    Require(writev(cuse, parts, 3) == (ssize_t)out.len, "answering the kernel");
}

static void ReplyInit(uint64_t unique) {
    struct cuse_init_out out = {0};
    out.major = FUSE_KERNEL_VERSION;
    out.minor = FUSE_KERNEL_MINOR_VERSION;
    out.flags = CUSE_UNRESTRICTED_IOCTL;
    out.max_read = kMaxWrite;
    out.max_write = kMaxWrite;
    char device[64];
    const int length = snprintf(device, sizeof device, "DEVNAME=%s", name);
    Reply(unique, 0, &out, sizeof out, device, (size_t)length + 1);
}

static void ReplyIoctl(uint64_t unique, const struct fuse_ioctl_in* in) {
    struct fuse_ioctl_out out = {0};
    if (in->in_size == 0) {
        const struct fuse_ioctl_iovec there_and_back[] = {{in->arg, sizeof(struct Record)},
                                                          {in->arg, sizeof(struct Record)}};
        out.flags = FUSE_IOCTL_RETRY;
        out.in_iovs = 1;
        out.out_iovs = 1;
        Reply(unique, 0, &out, sizeof out, there_and_back, sizeof there_and_back);
        return;
    }
    struct Record record;
    memcpy(&record, in + 1, sizeof record);
    out.result = Serve(in->cmd, &record);
    Reply(unique, 0, &out, sizeof out, &record, sizeof record);
}

static void ServeMessage(void) {
    static union {
        struct fuse_in_header header;
        uint8_t bytes[kMessageSize];
    } message;
    Require(read(cuse, message.bytes, sizeof message) > 0, "reading from the kernel");
    const uint64_t unique = message.header.unique;
    const void* const body = message.bytes + sizeof message.header;
    const struct fuse_open_out opened = {0};
    switch (message.header.opcode) {
        case CUSE_INIT:
            ReplyInit(unique);
            break;
        case FUSE_OPEN:
            fprintf(event_log, "%s open\n", name);
            Reply(unique, 0, &opened, sizeof opened, NULL, 0);
            break;
        case FUSE_RELEASE:
            fprintf(event_log, "%s close\n", name);
            Reply(unique, 0, NULL, 0, NULL, 0);
            break;
        case FUSE_IOCTL:
            ReplyIoctl(unique, body);
            break;
        case FUSE_INTERRUPT: /* wants no answer: the request that it names is answered already */
            break;
        default:
            Reply(unique, -ENOSYS, NULL, 0, NULL, 0);
    }
}

int main(int argc, char* argv[]) {
    if (argc != 3) {
        fputs("usage: devices NAME FOLDER\n", stderr);
        return 2;
    }
    name = argv[1];
    flash = OpenInFolder(argv[2], "flash", O_RDWR);
    ReadAnswers(OpenInFolder(argv[2], "answers", O_RDONLY));
    event_log = fdopen(OpenInFolder(argv[2], "log", O_WRONLY | O_APPEND), "a");
    Require(event_log != NULL, "log");
    setvbuf(event_log, NULL, _IOLBF, 0);
    cuse = open("/dev/cuse", O_RDWR);
    Require(cuse >= 0, "/dev/cuse");
    for (;;) {
        ServeMessage();
    }
}
