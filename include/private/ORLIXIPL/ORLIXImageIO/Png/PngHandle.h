// libpng's read and write structures, with its errors as texts instead of jumps across C++ objects.
#pragma once

#include <png.h>

#include <csetjmp>

namespace orlix::image::io {

/// What libpng said last; filled by its handlers, which run while C frames are on the stack.
struct PngError
{
    char text[256] = "";
};

/// Runs `calls`, which calls libpng; false where libpng failed. An error jumps from libpng right back into this
/// function, past the end of `calls`: `calls` may have no local object with a destructor.
template <class TCalls>
__attribute__((noinline)) bool guarded(png_structp png, TCalls&& calls)
{
    if (setjmp(png_jmpbuf(png))) { // NOLINT: libpng's way
        return false;
    }
    calls();
    return true;
}

/// Frees the structures when it goes. Throws std::bad_alloc where they can't be had. `stream` is handed to `transfer`
/// as libpng's io pointer.
class PngReadHandle
{
public:
    PngReadHandle(void* stream, png_rw_ptr transfer);
    ~PngReadHandle();
    PngReadHandle(const PngReadHandle&) = delete;
    PngReadHandle& operator=(const PngReadHandle&) = delete;

    png_structp png() const { return m_png; }
    png_infop info() const { return m_info; }
    const char* getError() const { return m_error.text; }

private:
    PngError m_error;
    png_structp m_png = nullptr;
    png_infop m_info = nullptr;
};

class PngWriteHandle
{
public:
    PngWriteHandle(void* stream, png_rw_ptr transfer);
    ~PngWriteHandle();
    PngWriteHandle(const PngWriteHandle&) = delete;
    PngWriteHandle& operator=(const PngWriteHandle&) = delete;

    png_structp png() const { return m_png; }
    png_infop info() const { return m_info; }
    const char* getError() const { return m_error.text; }

private:
    PngError m_error;
    png_structp m_png = nullptr;
    png_infop m_info = nullptr;
};

} // namespace orlix::image::io
