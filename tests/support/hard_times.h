#pragma once

#include <gtest/gtest.h>

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

namespace quelmont {

/// As long as it lives, the process is nobody in particular even when it was started as root, who
/// may open everything.
class WithoutPrivilege {
public:
    WithoutPrivilege() {
        if (user == 0 && seteuid(65534) != 0) {
            ADD_FAILURE() << "cannot give up the privileges of root";
        }
    }
    ~WithoutPrivilege() {
        if (user == 0 && seteuid(0) != 0) {
            ADD_FAILURE() << "cannot take the privileges back";
        }
    }
    WithoutPrivilege(const WithoutPrivilege&) = delete;
    WithoutPrivilege& operator=(const WithoutPrivilege&) = delete;

private:
    uid_t user = geteuid();
};

/// As long as it lives, no file can become longer: to a program the same as a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before = {};
    void (*handler)(int);
};

} // namespace quelmont
