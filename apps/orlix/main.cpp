// The program orlix: image operators on files.
#include "CommandLine.h"

int main(int argc, char** argv)
{
    return orlix::cli::runCommandLine(argc, argv);
}
