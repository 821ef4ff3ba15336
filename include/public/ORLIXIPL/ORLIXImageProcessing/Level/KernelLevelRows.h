// The rows of a level 3: how its kernels get each attribute.
#pragma once

#include "ORLIXIPL/ORLIXImageProcessing/Level/StraightImages.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/ParserOf.h"

namespace orlix::imaproc {

/// The strip attributes, none to two, whose element types choose the kernel.
template <class... TAttributes>
struct TypedBy
{};

namespace details {

/// A row whose strips are handed out by mode `TMode`.
template <class TAttribute, class TMode>
struct ParsedRow
{
    using Attribute = TAttribute;
    using Parser = ParserOf<TMode, TAttribute>;
    static_assert(Parser::g_bParser, "this attribute carries no strip that the mode could hand out");
    static constexpr bool g_bStrip = true;
    static constexpr bool g_bParsed = true;
    static constexpr bool g_bJoinsLines = TMode::g_bJoinsLines;
    /// Is a strip of touching lines, with room behind, handed out as it lies?
    static constexpr bool g_bWhole = std::is_base_of_v<BaseYStrip2dAttribute, TAttribute> &&
                                     (std::is_same_v<TMode, RawStripParserMode> || g_bJoinsLines);
};

} // namespace details

/// The whole strip as one block, for kernels without a tail.
template <class TAttribute>
struct Raw : details::ParsedRow<TAttribute, RawStripParserMode>
{};
/// Line by line.
template <class TAttribute>
struct ByLine : details::ParsedRow<TAttribute, LineStripParserMode>
{};
/// Line by line, but as one long line where the lines touch in every strip of this kind.
template <class TAttribute>
struct ByJoinedLines : details::ParsedRow<TAttribute, JoinedLineStripParserMode>
{};
/// A strip that kernels walk by themselves.
template <class TAttribute>
struct Unparsed
{
    using Attribute = TAttribute;
    static constexpr bool g_bStrip = true;
    static constexpr bool g_bParsed = false;
    static constexpr bool g_bJoinsLines = false;
    static constexpr bool g_bWhole = false;
};
/// A value or a data item.
template <class TAttribute>
struct Plain
{
    using Attribute = TAttribute;
    static constexpr bool g_bStrip = false;
    static constexpr bool g_bParsed = false;
    static constexpr bool g_bJoinsLines = false;
    static constexpr bool g_bWhole = false;
};

namespace details {

template <class TAttribute, class... TRows>
constexpr unsigned long indexOfRow()
{
    constexpr bool isRow[] = {std::is_same_v<TAttribute, typename TRows::Attribute>...};
    unsigned long index = 0;
    while (!isRow[index]) {
        ++index;
    }
    return index;
}
template <class TAttribute, class... TRows>
using RowOf = std::tuple_element_t<indexOfRow<TAttribute, TRows...>(), std::tuple<TRows...>>;

/// The place for the parser of a row; empty for a row without one.
template <class TRow, bool bParsed = TRow::g_bParsed>
struct ParserSlot
{};
template <class TRow>
struct ParserSlot<TRow, true>
{
    boost::shared_ptr<typename TRow::Parser::BaseParser> parser; ///< kept for the next strip of its type
    image::eImageBufferType type;

    void bind(const typename TRow::Attribute& attribute)
    {
        if (parser && type == attribute.getImageBufferType()) {
            parser->init(attribute.accessStrip());
        } else {
            parser = TRow::Parser::create(attribute);
            type = attribute.getImageBufferType();
        }
    }
};

/// What is lent to the attribute of a row for a moment: a value, or the one strip of an image or of a part of it.
template <class TRow, bool bStrip = TRow::g_bStrip>
struct Lent
{
    template <class TValues>
    explicit Lent(const TValues&)
    {}
    template <class TValues>
    void lend(typename TRow::Attribute& attribute, const TValues& values)
    {
        attribute.borrow(values.template get<typename TRow::Attribute>());
    }
};
template <class TRow>
struct Lent<TRow, true>
{
    using StripType = typename TRow::Attribute::StripType;
    StripType strip;

    template <class TValues>
    explicit Lent(const TValues& values) : strip(makeStrip(values.template get<typename TRow::Attribute>()))
    {}
    template <class TValues>
    void lend(typename TRow::Attribute& attribute, const TValues&)
    {
        attribute.borrow(&strip);
    }

private:
    template <class TImage>
    static StripType makeStrip(const StripPart<TImage>& part)
    {
        return StripType(*part.image, part.start, part.size);
    }
    template <class TImage>
    static StripType makeStrip(TImage* whole)
    {
        constexpr bool bOfPlans = std::is_base_of_v<image::BaseImageZStrip3d, StripType>;
        return StripType(*whole, 0, bOfPlans ? whole->getSizeZ() : whole->getSizeY());
    }
};

} // namespace details

} // namespace orlix::imaproc
