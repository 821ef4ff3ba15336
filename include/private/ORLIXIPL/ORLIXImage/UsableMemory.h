// How much memory this process may hope for.
#pragma once

namespace orlix::image {

/// Physical memory, or less where a control group allows less. Asked once.
unsigned long getUsableMemoryBytes() noexcept;

/// Physical memory and swap space of the machine. Asked once. A request beyond cannot be met, however willing the
/// system is to promise it.
unsigned long getAllMemoryBytes() noexcept;

} // namespace orlix::image
