// How a long read or write tells of its progress and is stopped.
#pragma once

#include <functional>

namespace orlix::image::io {

/// Called with the plans done and the plans in all, on the thread that reads or writes, at least once per plan. Between
/// two calls lie no more than 256 KiB of pixels, or 4 MiB that are waited for until they are on the disk; a row, or a
/// tile of a TIFF file, or a page of JPEG, LogLuv or another compression that is taken as a whole, counts as one piece
/// however large. Returning false stops the work with an ORLIXImageIOException. What it throws arrives at the caller of
/// the read or write. A core::CallWatch of the calling thread is told and heeded in the same way.
using ProgressFunction = std::function<bool(unsigned long plansDone, unsigned long plansKnown)>;

} // namespace orlix::image::io
