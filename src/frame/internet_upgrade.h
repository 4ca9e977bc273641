#pragma once

class Session;

/// Tells whether there is a newer version of the program, by the build number that the configured
/// address (the setting `UpgradeAddress`) gives under `ORVA/build.txt`, and offers to open the
/// address. No address is built in: where none is configured the teacher is told so.
void GetUpgradeInfo(Session& session);

/// Whether an address is configured: without one the start asks nothing.
bool hasUpgradeAddress(Session& session);
