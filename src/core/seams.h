#pragma once

#include "core/mail_client.h"

class Clock;
class Progress;
class Prompts;
class Shell;

/// The ways by which rules reach the person and the desktop. Made once at start-up (or by a test)
/// and handed on by reference to whoever needs them; whoever made them keeps them alive.
struct Seams {
    Prompts& prompts;
    Progress& progress;
    Shell& shell;
    Clock& clock;
    MailClient& mail = absentMailClient();
};
