#pragma once
// Where the start-up time goes: with TESSEL_START_TRACE naming a file, each step appends a line
// "<step>: <ms since the process was created>". Without it every mark costs one test of a flag.
namespace tessel {

void StartMark(const char* step);

}  // namespace tessel
