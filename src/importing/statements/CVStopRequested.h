#pragma once

#include <functional>

/// Asked often while something long is done, with the part that is done; true: stop.
using CVStopRequested = std::function<bool(int permille)>;
