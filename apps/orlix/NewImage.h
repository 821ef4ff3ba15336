// What the verbs share that make an image out of nothing but numbers.
#pragma once

#include "CommandContext.h"
#include "GivenValue.h"
#include "OutputOptions.h"

#include "ORLIXIPL/ORLIXImage/BaseImage.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orlix::cli {

struct NewImageArguments
{
    OutputOptions output;
    std::vector<unsigned long> size; ///< along x, y, z, c, t, as many as were given
    std::optional<GivenValue<image::eImageBufferType>> type;
    std::string like;
    std::optional<unsigned long> seed;
};

/// Declares the argument OUT and the options of outputs.
void addNewImageArguments(OptionList& list, NewImageArguments& arguments);
/// Declares --size, --type, --like and --seed. `arguments` has to outlive the parser.
void addNewImageOptions(OptionList& list, NewImageArguments& arguments);

/// Makes an image as the arguments tell, has `fill` fill it with the seed that was given, or with one that nobody has
/// had yet, and writes it. A seed that wasn't given is printed; with --json, so is any.
void makeRandomImage(const NewImageArguments& arguments, CommandContext& context,
                     const std::function<void(const ImagePtr& image)>& fill);

} // namespace orlix::cli
