// Two image attributes that rules are made for.
#pragma once

#include "ORLIXIPL/ORLIXImage/ImageFactory.h"
#include "ORLIXImageProcessing/TestAttributes.h"

#include <string>

namespace orlix::imaproc::test {

inline const std::string g_gone =
    "An attribute of the rule no longer exists: keep the processor that the rule was made for";

struct Pictures
{
    boost::shared_ptr<InPicture> in = boost::make_shared<InPicture>();
    boost::shared_ptr<OutPicture> out = boost::make_shared<OutPicture>();

    void set(const image::BaseImageGeometry& first, const image::BaseImageGeometry& second)
    {
        in->init(image::createImage(first));
        out->init(image::createImage(second));
    }
};

} // namespace orlix::imaproc::test
