// ORLIXSERIALIZATION_API marks what ORLIXSerialization exports; everything else stays hidden.
#pragma once

#define ORLIXSERIALIZATION_API __attribute__((visibility("default")))
