#pragma once

/// What a transfer tells the user at its end. The window does it; without one there is nobody to be
/// told.
///
/// Each of these may wait for the user, and the window may go meanwhile.
class DocumentTalk
{
public:
    virtual ~DocumentTalk() = default;

    /// The document could not be had.
    virtual void TellFailure() = 0;
    /// It came, and could not be written: the file may be open in a program that shows it.
    virtual void TellDenied() = 0;
};
