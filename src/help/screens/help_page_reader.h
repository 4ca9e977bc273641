#pragma once

/// Lets screen readers read a HelpPageView: as a document with its text. The toolkit tells a text
/// with links as a label, and of a label only the name is read. To call it again does nothing more.
void showHelpPagesToAssistiveTools();
