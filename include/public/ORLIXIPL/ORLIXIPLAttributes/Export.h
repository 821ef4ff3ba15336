// ORLIXIPLATTRIBUTES_API marks what ORLIXIPLAttributes exports; everything else stays hidden.
#pragma once

#define ORLIXIPLATTRIBUTES_API __attribute__((visibility("default")))
