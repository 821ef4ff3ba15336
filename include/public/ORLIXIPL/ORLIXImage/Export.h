// ORLIXIMAGE_API marks what ORLIXImage exports; everything else stays hidden.
#pragma once

#define ORLIXIMAGE_API __attribute__((visibility("default")))
