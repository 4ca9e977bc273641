#pragma once

/// Shows the program to assistive tools with the context menu that is open. The toolkit's own tree
/// has only menus of a bar; without this a screen reader finds no way into any other.
void showContextMenusToAssistiveTools();
