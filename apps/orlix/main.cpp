// The program orlix: image operators on files.
#include "CommandLine.h"
#include "StandardOutput.h"

int main(int argc, char** argv)
{
    const orlix::cli::StandardOutput output;
    return orlix::cli::runCommandLine(argc, argv);
}
