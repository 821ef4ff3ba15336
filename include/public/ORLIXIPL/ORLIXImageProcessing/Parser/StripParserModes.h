// How strips are handed to kernels, and which parser does it for each kind of strip.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Parser/YStrip2dParsers.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/YStrip2dWithKernelParser.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ZStrip3dParsers.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ZStrip3dWithKernelParser.h"

#include <concepts>

namespace orlix::imaproc {

struct ORLIXIMAGEPROCESSING_API RawStripParserMode;
struct ORLIXIMAGEPROCESSING_API LineStripParserMode;

namespace details {

/// The parsers of a mode for strips of attributes with base class `TAttribute`: `Base`, and `Parser` by storage type.
/// No mode has a parser for an attribute that carries no strip, and only those by line have one for margins.
template <class TMode, class TAttribute>
struct ParserTypes
{
    using Base = void;
};

template <std::derived_from<BaseYStrip2dAttribute> TAttribute>
struct ParserTypes<RawStripParserMode, TAttribute>
{
    using Base = BaseRawYStrip2dParser<TAttribute>;
    template <class T>
    using Parser = RawYStrip2dParser<T, TAttribute>;
};
template <std::derived_from<BaseZStrip3dAttribute> TAttribute>
struct ParserTypes<RawStripParserMode, TAttribute>
{
    using Base = BaseRawZStrip3dParser<TAttribute>;
    template <class T>
    using Parser = RawZStrip3dParser<T, TAttribute>;
};
template <std::derived_from<BaseYStrip2dAttribute> TAttribute>
struct ParserTypes<LineStripParserMode, TAttribute>
{
    using Base = BaseLineYStrip2dParser<TAttribute>;
    template <class T>
    using Parser = LineYStrip2dParser<T, TAttribute>;
};
template <std::derived_from<BaseZStrip3dAttribute> TAttribute>
struct ParserTypes<LineStripParserMode, TAttribute>
{
    using Base = BaseLineZStrip3dParser<TAttribute>;
    template <class T>
    using Parser = LineZStrip3dParser<T, TAttribute>;
};
template <std::derived_from<BaseYStrip2dWithKernelAttribute> TAttribute>
struct ParserTypes<LineStripParserMode, TAttribute>
{
    using Base = BaseLineYStrip2dWithKernelParser<TAttribute>;
    template <class T>
    using Parser = LineYStrip2dWithKernelParser<T, TAttribute>;
};
template <std::derived_from<BaseZStrip3dWithKernelAttribute> TAttribute>
struct ParserTypes<LineStripParserMode, TAttribute>
{
    using Base = BaseLineZStrip3dWithKernelParser<TAttribute>;
    template <class T>
    using Parser = LineZStrip3dWithKernelParser<T, TAttribute>;
};

} // namespace details

// Visible, so that what the library makes of a mode is, too.

/// The whole strip at once.
struct ORLIXIMAGEPROCESSING_API RawStripParserMode
{
    static constexpr bool g_bJoinsLines = false;
    using ParserMode = RawStripParserMode; ///< whose parsers it uses
    template <class TAttribute>
    using BaseParser = typename details::ParserTypes<ParserMode, TAttribute>::Base;
};
/// Line by line.
struct ORLIXIMAGEPROCESSING_API LineStripParserMode
{
    static constexpr bool g_bJoinsLines = false;
    using ParserMode = LineStripParserMode;
    template <class TAttribute>
    using BaseParser = typename details::ParserTypes<ParserMode, TAttribute>::Base;
};
/// Line by line, but as one long line where the lines touch in every strip, of a volume's as one a plan: for kernels to
/// which each element is one by itself, so that short lines do not cost a call each.
struct ORLIXIMAGEPROCESSING_API JoinedLineStripParserMode : LineStripParserMode
{
    static constexpr bool g_bJoinsLines = true;
};
/// Not at all: the kernel is called once per strip and walks its strips by itself.
struct ORLIXIMAGEPROCESSING_API NoStripParserMode
{
    static constexpr bool g_bJoinsLines = false;
    using ParserMode = NoStripParserMode;
    template <class TAttribute>
    using BaseParser = void;
};

} // namespace orlix::imaproc
