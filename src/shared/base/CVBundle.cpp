#include "shared/base/CVBundle.h"

namespace CVBundle {

std::string_view version() {
    return CORVELLA_VERSION;
}

} // namespace CVBundle
