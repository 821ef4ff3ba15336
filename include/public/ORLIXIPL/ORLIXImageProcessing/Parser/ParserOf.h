// Which parser hands out what an attribute carries, and how it is made.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParserInfo.h"

namespace orlix::imaproc {

namespace details {

// By overload: an attribute class goes with the nearest of its base classes that parsers know.
std::type_identity<BaseInputYStrip2dAttribute> stripBaseOf(const BaseInputYStrip2dAttribute*);
std::type_identity<BaseOutputYStrip2dAttribute> stripBaseOf(const BaseOutputYStrip2dAttribute*);
std::type_identity<BaseInputZStrip3dAttribute> stripBaseOf(const BaseInputZStrip3dAttribute*);
std::type_identity<BaseOutputZStrip3dAttribute> stripBaseOf(const BaseOutputZStrip3dAttribute*);
std::type_identity<BaseInOutZStrip3dAttribute> stripBaseOf(const BaseInOutZStrip3dAttribute*);
std::type_identity<BaseInputYStrip2dWithKernelAttribute> stripBaseOf(const BaseInputYStrip2dWithKernelAttribute*);
std::type_identity<BaseInputZStrip3dWithKernelAttribute> stripBaseOf(const BaseInputZStrip3dWithKernelAttribute*);
std::type_identity<void> stripBaseOf(const void*);

} // namespace details

/// `TMode` is one of the modes of StripParserModes.h, `TAttribute` any attribute class.
template <class TMode, class TAttribute>
struct ParserOf
{
    /// The base class that tells the kind of strip and its direction; void for an attribute that carries no strip.
    using StripBase = typename decltype(details::stripBaseOf(static_cast<const TAttribute*>(nullptr)))::type;
    static constexpr bool g_bStrip = !std::is_void_v<StripBase>;

    /// What a level holds; void where there is no parser.
    using BaseParser = typename TMode::template BaseParser<StripBase>;
    static constexpr bool g_bParser = !std::is_void_v<BaseParser>;
    static_assert(g_bParser || !g_bStrip || std::same_as<TMode, NoStripParserMode>,
                  "this mode has no parser for this kind of strip: strips with margins are parsed line by line");

    /// A parser bound to the attribute's strip; null for an element type outside 1 to 11, such as that of no strip.
    static boost::shared_ptr<BaseParser> create(const TAttribute& attribute) requires(g_bParser)
    {
        return StripParserInfo<TMode, StripBase, StripBase>::createParser(attribute);
    }
};

} // namespace orlix::imaproc
