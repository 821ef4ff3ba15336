# Libraries that the family calls; all of them are Debian packages (docs/dependencies.md says why each).

find_package(Threads REQUIRED)
find_package(Boost 1.74 REQUIRED COMPONENTS filesystem thread)
find_package(TBB REQUIRED COMPONENTS tbb tbbmalloc)
find_package(TIFF REQUIRED)
find_package(PNG REQUIRED)
find_package(ZLIB REQUIRED)
find_package(pugixml REQUIRED)
find_package(CLI11 REQUIRED)
find_package(log4cplus REQUIRED)
