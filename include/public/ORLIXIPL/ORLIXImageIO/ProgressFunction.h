// How a long read or write tells of its progress and is stopped.
#pragma once

#include <functional>

namespace orlix::image::io {

/// Called with the plans done and the plans in all, on the thread that reads or writes, at least once a plan and every
/// 16 MiB. Returning false stops the work with an ORLIXImageIOException. What it throws arrives at the caller of the
/// read or write.
using ProgressFunction = std::function<bool(unsigned long plansDone, unsigned long plansKnown)>;

} // namespace orlix::image::io
