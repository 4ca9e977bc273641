#pragma once

/// Whether the person's paper is Letter, by the locale; else it is A4.
bool usesLetterPaper();
