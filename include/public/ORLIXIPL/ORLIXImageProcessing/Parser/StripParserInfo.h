// From an element type to a parser.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParserModes.h"

namespace orlix::imaproc {

/// `TMode` is a mode that has parsers for strips of attributes with base class `TAttribute`. Made once, in the library,
/// for every mode and base class.
template <class TMode, class TAttribute, class TStripAttribute>
struct ORLIXIMAGEPROCESSING_API StripParserInfo
{
    using BaseParser = typename TMode::template BaseParser<TAttribute>;

    /// A parser bound to the attribute's strip; null for an element type outside 1 to 11.
    static boost::shared_ptr<BaseParser> createParser(const TStripAttribute& attribute);
};

} // namespace orlix::imaproc
