// Where the time and the allocations of copyImg go on an image so small that the pixels hardly count.
#pragma once

namespace orlix::bench {

class Suite;

void addSmallCall(Suite& suite);

} // namespace orlix::bench
