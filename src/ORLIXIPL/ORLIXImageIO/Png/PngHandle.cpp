// Making and freeing libpng's structures.
#include "ORLIXIPL/ORLIXImageIO/Png/PngHandle.h"

#include <cstdio>
#include <new>

namespace orlix::image::io {

namespace {

void onError(png_structp png, png_const_charp text)
{
    auto& error = *static_cast<PngError*>(png_get_error_ptr(png));
    std::snprintf(error.text, sizeof error.text, "%s", text);
    png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

void flush(png_structp) {}

} // namespace

PngReadHandle::PngReadHandle(void* stream, png_rw_ptr transfer)
    : m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, &m_error, onError, onWarning))
{
    m_info = m_png ? png_create_info_struct(m_png) : nullptr;
    if (!m_info) {
        png_destroy_read_struct(&m_png, nullptr, nullptr);
        throw std::bad_alloc();
    }
    png_set_read_fn(m_png, stream, transfer);
}

PngReadHandle::~PngReadHandle()
{
    png_destroy_read_struct(&m_png, &m_info, nullptr);
}

PngWriteHandle::PngWriteHandle(void* stream, png_rw_ptr transfer)
    : m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, &m_error, onError, onWarning))
{
    m_info = m_png ? png_create_info_struct(m_png) : nullptr;
    if (!m_info) {
        png_destroy_write_struct(&m_png, nullptr);
        throw std::bad_alloc();
    }
    png_set_write_fn(m_png, stream, transfer, flush);
}

PngWriteHandle::~PngWriteHandle()
{
    png_destroy_write_struct(&m_png, &m_info);
}

} // namespace orlix::image::io
