#pragma once

#include <QString>

/// The tables of the schema as Markdown: the section of docs/file-format.md between
/// SchemaSectionBegin and SchemaSectionEnd.
QString schemaMarkdown();

inline constexpr QLatin1String
    SchemaSectionBegin("<!-- tables: begin, from build/tools/schema_doc -->");
inline constexpr QLatin1String SchemaSectionEnd("<!-- tables: end -->");
