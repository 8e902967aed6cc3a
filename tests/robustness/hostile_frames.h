// One try at doing the library harm: hostile frames and picks, and then a clean frame.
#pragma once

#include "tests/robustness/byte_source.h"

#include <string>

namespace kardeno::tests {

// What was wrong; empty when nothing was. Crashes and stray accesses are for the sanitizers to find, and hangs for
// whoever runs the program. Makes a host of its own: there must be no other.
std::string complaintAbout(ByteSource& source);

} // namespace kardeno::tests
