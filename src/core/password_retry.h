#pragma once

#include <QString>

class Prompts;

/// Asks for the password of a protected file after `failures` earlier answers, the last of which
/// the teacher is told was wrong: the first time there is no such word. False when it was called
/// off; `password` then stays.
bool askForPassword(Prompts& prompts, int failures, QString& password);
