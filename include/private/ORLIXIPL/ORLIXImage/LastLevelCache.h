// Whether a buffer is too large for the last-level cache to keep it.
#pragma once

namespace orlix::image {

/// True for a buffer of at least half the last-level cache: stores past the cache pay there, and cost below.
bool isStreamingPaying(unsigned long bytes);

} // namespace orlix::image
