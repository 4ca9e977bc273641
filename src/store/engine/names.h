#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace dao {

/// The form under which two texts that differ in case alone are the same, beyond ASCII too.
QString folded(QStringView text);

/// Whether two names of tables, fields, indexes or relations name the same thing.
bool sameName(QStringView a, QStringView b);

/// Compares two texts as every comparison of the engine does: without regard to case; an accented
/// letter differs from the bare one and stands straight behind it. Negative, 0 or positive.
int compareText(QStringView a, QStringView b);

/// compareText for texts in UTF-8, for where they come as such; it decodes only from the first
/// letter beyond ASCII on.
int compareUtf8(QByteArrayView a, QByteArrayView b);

/// The one function that writes a name of a table or field into a text of Jet SQL: as it stands
/// where it parses so, else in brackets, a closing bracket doubled. `writeName(u"7A")` gives
/// `[7A]`, `writeName(u"Class_7A")` gives `Class_7A`, `writeName(u"a]b")` gives `[a]]b]`.
QString writeName(QStringView name);

/// A text as a literal of Jet SQL: between single quotes, a single quote inside doubled.
QString writeText(QStringView text);

/// Raises 3125 unless the name can be a table's or field's: not empty, at most 64 characters, no
/// blank in front, no control character and none of `.`, `!`, `` ` ``. Brackets are allowed: class
/// codes may hold them.
void checkName(QStringView name);

/// Whether a text matches a pattern of LIKE: `*` any run, `?` any character, `#` a digit, `[a-f]`
/// one of a list, `[!a-f]` one outside it, all without regard to case. A pattern with an open
/// bracket and no closing one raises 3075.
bool matchesLike(QStringView text, QStringView pattern);

} // namespace dao
