"""The `orlix` command that the package brings: ``python -m orlix``."""

import os
import sys


def main() -> None:
    """Become the command."""
    program = os.path.join(os.path.dirname(__file__), "bin", "orlix")
    if not os.path.exists(program):
        sys.exit("this build of the package has no orlix command of its own")
    os.execv(program, [program, *sys.argv[1:]])


if __name__ == "__main__":
    main()
