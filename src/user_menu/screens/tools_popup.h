#pragma once

class QMenu;
class Session;

/// Puts the tools and the person's shortcuts round what stands in the popup of the toolbar's tools
/// button, as the settings have them now, in place of those that were put there before.
void fillToolsPopup(Session& session, QMenu& popup);

/// Puts the shortcuts of the older, flat list into a menu, which hides where there are none.
void fillOlderShortcuts(Session& session, QMenu& menu);
