// Reads any bytes as an archive of data items: it may be refused, but never crash or leave half an object.
#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"
#include "ORLIX/ORLIXUtil/BaseException.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace orlix::fuzz {
namespace {

struct FuzzedRecord
{
    static constexpr const char* g_className = "orlix::fuzz::Fuzzed";

    bool bFlag = false;
    signed char int8 = 0;
    unsigned short uint16 = 0;
    int int32 = 0;
    unsigned long uint64 = 0;
    float real32 = 0;
    double real64 = 0;
    std::string text;
    std::vector<double> values;
    std::vector<boost::shared_ptr<PlanIndex>> indices;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("flag", &FuzzedRecord::bFlag);
        visitor("int8", &FuzzedRecord::int8);
        visitor("uint16", &FuzzedRecord::uint16);
        visitor("int32", &FuzzedRecord::int32);
        visitor("uint64", &FuzzedRecord::uint64);
        visitor("real32", &FuzzedRecord::real32);
        visitor("real64", &FuzzedRecord::real64);
        visitor("text", &FuzzedRecord::text);
        visitor("values", &FuzzedRecord::values);
        visitor("indices", &FuzzedRecord::indices);
    }
};

class Fuzzed final : public DataItemNode<Fuzzed, FuzzedRecord>
{};

using FuzzedColl = PlanIndexedColl<Fuzzed>;

void require(bool bHolds)
{
    if (!bHolds) {
        std::abort();
    }
}

bool reads(std::string_view bytes, FuzzedColl& coll)
{
    TextIArchive input;
    if (!input.loadFromString(bytes)) {
        return false;
    }
    try {
        return coll.read(input).getValue();
    } catch (const BaseException&) {
        return false;
    }
}

} // namespace
} // namespace orlix::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace orlix::fuzz;
    FuzzedColl read;
    if (!reads({reinterpret_cast<const char*>(data), size}, read)) {
        require(read == FuzzedColl());
        return 0;
    }
    orlix::TextOArchive output;
    require(read.write(output).getValue());
    std::string text;
    require(output.saveToString(text).getValue());
    FuzzedColl again;
    require(reads(text, again) && again == read);
    return 0;
}
