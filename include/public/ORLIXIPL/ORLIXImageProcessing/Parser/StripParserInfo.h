// From an element type to a parser.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParsers.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc {

/// `TMode` is one of the modes of StripParsers.h, `TAttribute` the base class of the strip attribute.
template <class TMode, class TAttribute, class TStripAttribute>
struct StripParserInfo
{
    using BaseParser = typename TMode::template BaseParser<TAttribute>;

    /// A parser bound to the attribute's strip; null for an element type outside 1 to 11.
    static boost::shared_ptr<BaseParser> createParser(const TStripAttribute& attribute)
    {
        boost::shared_ptr<BaseParser> parser;
        image::visitStorageType(attribute.getImageBufferType(), [&]<class T>() {
            parser = boost::make_shared<typename TMode::template Parser<T, TAttribute>>();
            parser->init(attribute.getStorage());
        });
        return parser;
    }
};

} // namespace orlix::imaproc
