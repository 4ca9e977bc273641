#pragma once

class Prompts;
class Settings;

/// Whether the incident reports may be shown now. Unless the setting is set the person is asked,
/// and a ticked box sets it, whichever button was pressed with it.
bool MayShowIncidents(Settings& settings, Prompts& prompts);
