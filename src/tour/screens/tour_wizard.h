#pragma once

#include "year/year_answers.h"

#include <functional>

class StartupWizard;

/// Types a year's answers into the wizard's own controls, page by page, up to the last one.
/// `onPage` is called with the number of each frame of the set-up once it is filled.
void fillWizard(StartupWizard& wizard, const YearAnswers& answers,
                const std::function<void(int frame)>& onPage);
