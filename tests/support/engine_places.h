#pragma once

#include <QtCore/QString>

namespace test {

/// Where the tests find what the repository holds and what the build made. The folders are known to
/// one file alone, so that the others compile to the same object wherever the repository stands.
/// @param name  a path below the folder, such as "jet/year_jet4.mdb".
QString testData(const QString& name);
QString sample(const QString& name);
/// A page of docs/.
QString docsPage(const QString& name);
/// A program of tools/, built.
QString tool(const QString& name);
/// The folder of the pages that the program's help is made from.
QString helpPages();
/// A file of the build tree: "share/orva/ORVA.hlp".
QString built(const QString& name);

} // namespace test
