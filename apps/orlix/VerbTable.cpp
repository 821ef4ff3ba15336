// The table of verbs: a new one adds its file under verbs/ and its line here.
#include "Verb.h"

// clang-format off
#define ORLIX_VERBS(verb)                                                                                              \
    verb(info)                                                                                                         \
    verb(copy)                                                                                                         \
    verb(convert)                                                                                                      \
    verb(threshold)                                                                                                    \
    verb(erase)                                                                                                        \
    verb(crop)                                                                                                         \
    verb(slice)                                                                                                        \
    verb(putslice)                                                                                                     \
    verb(append)                                                                                                       \
    verb(random)                                                                                                       \
    verb(normal)                                                                                                       \
    verb(lines)                                                                                                        \
    verb(compare)                                                                                                      \
    verb(values)                                                                                                       \
    verb(run)                                                                                                          \
    verb(processors)
// clang-format on

namespace orlix::cli {

#define ORLIX_DECLARE_VERB(name) extern const Verb g_##name;
ORLIX_VERBS(ORLIX_DECLARE_VERB)

std::span<const Verb* const> getVerbs()
{
#define ORLIX_VERB_ADDRESS(name) &g_##name,
    static constexpr const Verb* g_verbs[] = {ORLIX_VERBS(ORLIX_VERB_ADDRESS)};
    return g_verbs;
}

} // namespace orlix::cli
