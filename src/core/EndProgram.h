#pragma once

#include <functional>

/// Ends the process, at once and for good: whoever calls it has saved what is to be saved. A nested
/// event loop (a box, a wait for the server) further up the stack cannot keep the process alive;
/// only a ProgramHold does.
void EndProgram(int exitCode = 0);

/// While one of these lives, the end that EndProgram was called for waits: something is being
/// written that is to be whole, and it comes to its end by itself. EndProgram returns meanwhile.
class ProgramHold
{
public:
    ProgramHold();
    ~ProgramHold();
    ProgramHold(const ProgramHold &) = delete;
    ProgramHold &operator=(const ProgramHold &) = delete;
};

/// Something to be done just before EndProgram ends the process.
void AtEndOfProgram(const std::function<void()> &duty);

/// What EndProgram does in place of ending the process; an empty function restores the ending.
/// For tests, which want to outlive the program they test.
void ReplaceEndProgram(std::function<void(int)> ending);
