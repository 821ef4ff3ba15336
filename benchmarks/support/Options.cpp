#include "support/Options.h"

#include "ORLIX/ORLIXCore/InstructionSetAvailability.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace orlix::bench {

namespace {

const std::string g_secondsFlag = "--seconds=";

double parseSeconds(const std::string& text)
{
    char* end = nullptr;
    const double seconds = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(seconds >= 0)) {
        throw std::invalid_argument(g_secondsFlag + " needs a number from 0, found \"" + text + "\"");
    }
    return seconds;
}

} // namespace

std::vector<eInstructionSet> Options::selectInstructionSets() const
{
    const std::vector<eInstructionSet>& all = core::getAvailableInstructionSets();
    return bQuick ? std::vector<eInstructionSet>{all.back()} : all;
}

Options parseOptions(int& argc, char** argv)
{
    Options options;
    double seconds = -1;
    const auto isTaken = [&](const std::string& argument) {
        if (argument == "--quick") {
            options.bQuick = true;
            return true;
        }
        if (argument.rfind(g_secondsFlag, 0) == 0) {
            seconds = parseSeconds(argument.substr(g_secondsFlag.size()));
            return true;
        }
        return false;
    };
    char** const end = std::remove_if(argv + 1, argv + argc, isTaken);
    argc = static_cast<int>(end - argv);
    options.seconds = seconds >= 0 ? seconds : options.bQuick ? 0.4 : options.seconds;
    return options;
}

const char* describeOptions()
{
    return "--quick        only the widest kernel set, 0.4 seconds a comparison\n"
           "--seconds=<s>  seconds a comparison (10); 0 takes every sample once\n";
}

} // namespace orlix::bench
