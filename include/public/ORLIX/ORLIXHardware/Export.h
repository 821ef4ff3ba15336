// ORLIXHARDWARE_API marks what ORLIXHardware exports; everything else stays hidden.
#pragma once

#define ORLIXHARDWARE_API __attribute__((visibility("default")))
