#pragma once

#include <QString>

namespace richtext {

/// A formula on one line, typed with plain keys, as it is shown: "x^2 +- sqrt(pi) <= theta" becomes
/// "x² ± √(π) ≤ θ". Names of Greek letters and of a few signs become these where they stand as
/// words of their own ("PI" is left alone, "Omega" is the capital), powers and indices of digits
/// become small. Signs that are typed as such stay.
QString formulaText(const QString& typed);

} // namespace richtext
