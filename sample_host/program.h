// The sample host as a program: from its arguments to the pictures.
#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace sample_host {

// Does what the arguments ask for; they come without the program's name. `library` is the renderer's file where they
// name no other. Help and remarks go to `out`, and the commands say on the standard output what they drew; when
// something fails, one sentence goes to `errors`. Gives the program's exit code.
//
// The arguments are read first and the model second; then the renderer is loaded and the pictures are drawn. What is
// wrong in one step is said before the next one begins.
int runProgram(std::span<const char* const> arguments, const std::string& library, std::ostream& out,
               std::ostream& errors);

} // namespace sample_host
