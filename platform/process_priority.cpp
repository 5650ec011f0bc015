#include "platform/process_priority.h"

#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace vantrace {

namespace {

constexpr int normalNice = 0;
constexpr int idleNice = 19;

bool hasCapabilityToRaise() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3] = {};
    return syscall(SYS_capget, &header, data) == 0 && (data[0].effective & (1U << CAP_SYS_NICE)) != 0;
}

/// Whether a nice value of 19 can be made 0 again.
bool canReturnToNormal() {
    // The platform counts this limit from 20 down: 20 - nice is the least that allows a nice value.
    rlimit limit{};
    const bool limitAllows =
        getrlimit(RLIMIT_NICE, &limit) == 0 && limit.rlim_cur >= static_cast<rlim_t>(20 - normalNice);
    return limitAllows || hasCapabilityToRaise();
}

}  // namespace

bool setProcessPriority(PriorityClass priority) {
    errno = 0;
    const int present = getpriority(PRIO_PROCESS, 0);
    if (present == -1 && errno != 0) return false;
    const int wanted = priority == PriorityClass::Idle ? idleNice : normalNice;
    if (present == wanted) return true;
    if (present != normalNice && present != idleNice) return false;
    if (priority == PriorityClass::Idle && !canReturnToNormal()) return false;
    return setpriority(PRIO_PROCESS, 0, wanted) == 0;
}

}  // namespace vantrace
