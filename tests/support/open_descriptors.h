// Which descriptors the process has open, and tests that leave them as they were.
#ifndef TESTS_SUPPORT_OPEN_DESCRIPTORS_H
#define TESTS_SUPPORT_OPEN_DESCRIPTORS_H

#include <fcntl.h>
#include <gtest/gtest.h>

#include <set>

// Asks for each number, because listing /proc would open a descriptor itself.
inline std::set<int> OpenDescriptors() {
    constexpr int kLimit = 1024;
    std::set<int> open;
    for (int fd = 0; fd < kLimit; ++fd) {
        if (fcntl(fd, F_GETFD) >= 0) {
            open.insert(fd);
        }
    }
    return open;
}

// Fails each test that ends with more or fewer descriptors than it began with.
class KeepsDescriptors : public testing::Test {
protected:
    void SetUp() override { open_ = OpenDescriptors(); }
    void TearDown() override { EXPECT_EQ(OpenDescriptors(), open_); }

private:
    std::set<int> open_;
};

#endif
