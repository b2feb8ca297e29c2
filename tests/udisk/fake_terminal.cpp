// The state behind the replaced calls.

#include "tests/udisk/fake_terminal.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

FakeTerminal::FakeTerminal() : log_([this](const std::string& line) { Record(line); }) {
    SetPartitions("");
    active_ = this;
}

FakeTerminal::~FakeTerminal() {
    active_ = nullptr;
    for (void* block : blocks_) {
        free(block);  // the names, which udisk leaves to the end of the process
    }
}

void FakeTerminal::SetPartitions(const std::string& lines) {
    partitions = "major minor  #blocks  name\n\n" + lines;
}

void* FakeTerminal::Own(void* block) {
    blocks_.insert(block);
    return block;
}

std::vector<std::string> FakeTerminal::TextsOnHeap() const {
    std::vector<std::string> texts;
    for (void* block : blocks_) {
        const auto* text = static_cast<const char*>(block);
        texts.emplace_back(text, strnlen(text, malloc_usable_size(block)));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

std::vector<std::string> CallsBeforeMounting() {
    return {
        "fopen /proc/partitions r",
        "opendir /proc/scsi/usb-storage",
        "umount /mnt/removable",
        "Info udiskdetection DoUmount: umounted /mnt/removable successfully!\\n",
    };
}

std::vector<std::string> operator+(std::vector<std::string> left,
                                   const std::vector<std::string>& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}
