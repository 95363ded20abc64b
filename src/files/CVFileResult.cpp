#include "files/CVFileResult.h"

#include <cerrno>

bool CVFileResult::diskIsFull() const {
    return error == qt_error_string(ENOSPC);
}

CVFileResult CVFileResult::ofLastCall() {
    // A failure always has a reason: without one it would pass for a success.
    return {qt_error_string(errno == 0 ? EIO : errno)};
}

bool CVFileResult::isUnknownCall(int error) {
    return error == EINVAL || error == ENOSYS || error == EPERM || error == ENOTSUP;
}
