#pragma once

#include <QByteArray>

/// What the practice court says to a request, given with its bars, to somebody who has logged in:
/// all bytes of the reply, without its pauses; of a long one the beginning and the end. A reply
/// that would never end, or end with the link, ends with an end mark. The same request has the same
/// reply each time, and only the first takes long.
const QByteArray &PracticeAnswer(const QByteArray &frame);

/// Gives the memory of the answers back. Answers that somebody holds by reference go with them.
void ForgetPracticeAnswers();
