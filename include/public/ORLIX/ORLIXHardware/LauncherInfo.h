// What host launchers and device kernels hand each other. For every compiler from C++17 on, without any include.
#pragma once

namespace orlix::gpu {

/// What a launcher is told of the device and of the images, and every thread of a kernel as well, by value. The layout
/// is the same in host and in device code.
struct LauncherInfo
{
    unsigned int nbMultiProcessors;
    unsigned int maxThreadsPerMultiProcessor;
    unsigned int maxThreadsPerBlock;
    unsigned int blockSize2d; ///< side of a block; the low 16 bits count, and may not be 0
    unsigned int zero;        ///< always 0
    unsigned int reserved;    ///< nobody sets or reads it
    unsigned long sizeX;      ///< pixels
    unsigned long sizeY;
    unsigned long sizeZ;
    unsigned long sizeC;
    unsigned long sizeT;
};

static_assert(sizeof(LauncherInfo) == 64);
static_assert(__builtin_offsetof(LauncherInfo, nbMultiProcessors) == 0);
static_assert(__builtin_offsetof(LauncherInfo, maxThreadsPerMultiProcessor) == 4);
static_assert(__builtin_offsetof(LauncherInfo, maxThreadsPerBlock) == 8);
static_assert(__builtin_offsetof(LauncherInfo, blockSize2d) == 12);
static_assert(__builtin_offsetof(LauncherInfo, zero) == 16);
static_assert(__builtin_offsetof(LauncherInfo, reserved) == 20);
static_assert(__builtin_offsetof(LauncherInfo, sizeX) == 24);
static_assert(__builtin_offsetof(LauncherInfo, sizeY) == 32);
static_assert(__builtin_offsetof(LauncherInfo, sizeZ) == 40);
static_assert(__builtin_offsetof(LauncherInfo, sizeC) == 48);
static_assert(__builtin_offsetof(LauncherInfo, sizeT) == 56);

/// Did a call to the device work? The text, "" on success, is nobody's to free and lives as long as the process.
struct [[nodiscard]] CudaResult
{
    bool bSuccess;
    const char* message;
};

/// Threads of a block, blocks of a grid, or the place of one of them.
struct Extent3d
{
    unsigned int x;
    unsigned int y;
    unsigned int z;
};

/// Which thread of a launch this is.
struct ThreadPlace
{
    Extent3d blockIndex;  ///< of its block, in the grid
    Extent3d blockSize;   ///< threads
    Extent3d threadIndex; ///< of it, in its block
};

} // namespace orlix::gpu
