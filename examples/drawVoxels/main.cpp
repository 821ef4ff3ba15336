// Draws the pixels of a volume that aren't 0 in their box, the nearer the brighter; x runs across, z down and y into
// the depth: drawVoxels volume.tif volume.png
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImg.h"
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXIPL/ORLIXImageIO/ReadImage.h"
#include "ORLIXIPL/ORLIXImageIO/WriteImage.h"

#include <algorithm>
#include <cmath>
#include <iostream>

namespace {

using namespace orlix;
using image::eImageBufferType;

constexpr double g_scale = 2; // pixels of the picture for one of the volume
constexpr double g_depthX = 1.2;
constexpr double g_depthY = 0.7; // what one pixel in depth moves to the right and up
constexpr unsigned long g_margin = 12;
constexpr unsigned char g_paper = 24;
constexpr unsigned char g_edge = 70;
constexpr double g_farthest = 70;
constexpr double g_nearest = 253;

class Picture
{
public:
    explicit Picture(const image::BaseImage& volume)
        : m_x(static_cast<double>(volume.getSizeX())), m_y(static_cast<double>(volume.getSizeY())),
          m_z(static_cast<double>(volume.getSizeZ()))
    {
        m_sizeX = static_cast<unsigned long>(m_x * g_scale + m_y * g_depthX) + 2 * g_margin;
        m_sizeY = static_cast<unsigned long>(m_z * g_scale + m_y * g_depthY) + 2 * g_margin;
        m_image = image::createImage(*image::geometry2d(eImageBufferType::UInt8, m_sizeX, m_sizeY));
        m_pixels = image::planData<unsigned char>(*m_image, 0, 0, 0); // rows of a new image touch
        std::fill_n(m_pixels, m_sizeX * m_sizeY, g_paper);
    }

    /// Edges first, so that voxels lie above them.
    void drawBox()
    {
        for (double part = 0; part <= 1; part += 0.25 / (m_x + m_y + m_z)) {
            for (const double a : {0., 1.}) {
                for (const double b : {0., 1.}) {
                    set(part * m_x, a * m_y, b * m_z, g_edge);
                    set(a * m_x, part * m_y, b * m_z, g_edge);
                    set(a * m_x, b * m_y, part * m_z, g_edge);
                }
            }
        }
    }

    void drawVoxel(double x, double y, double z)
    {
        const double nearness = 1 - y / m_y;
        const double grey = g_farthest + nearness * (g_nearest - g_farthest);
        for (const double right : {0., 0.5}) {
            for (const double down : {0., 0.5}) {
                set(x + right, y, z + down, static_cast<unsigned char>(std::lround(grey)));
            }
        }
    }

    ImagePtr take() const { return m_image; }

private:
    void set(double x, double y, double z, unsigned char grey)
    {
        const double across = x * g_scale + y * g_depthX;
        const double down = z * g_scale + (m_y - y) * g_depthY;
        const unsigned long row = g_margin + static_cast<unsigned long>(down);
        m_pixels[row * m_sizeX + g_margin + static_cast<unsigned long>(across)] = grey;
    }

    double m_x, m_y, m_z;
    unsigned long m_sizeX = 0, m_sizeY = 0;
    ImagePtr m_image;
    unsigned char* m_pixels = nullptr;
};

ImagePtr draw(const ImagePtr& volume)
{
    const ImagePtr real = imaproc::util::convertImg(volume, eImageBufferType::Real32);
    Picture picture(*real);
    picture.drawBox();
    for (unsigned long y = real->getSizeY(); y-- > 0;) { // from the back
        for (unsigned long z = 0; z < real->getSizeZ(); ++z) {
            const float* const line = image::planData<float>(*real, z, 0, 0) + y * real->getSizeX();
            for (unsigned long x = 0; x < real->getSizeX(); ++x) {
                if (line[x] != 0) {
                    picture.drawVoxel(static_cast<double>(x), static_cast<double>(y), static_cast<double>(z));
                }
            }
        }
    }
    return picture.take();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: drawVoxels <image file> <file to write, .tif or .png>\n";
        return 2;
    }
    try {
        image::io::writeImage(argv[2], draw(image::io::readImage(argv[1])));
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return 2;
    }
    return 0;
}
