#pragma once

#include <functional>

/// Ends this process, as a kill would, after so many microseconds.
void endAfter(int microseconds);

/// Runs work in a process of its own; answers what it returns, -1 where it came to no end.
int statusOf(const std::function<int()>& work);

/// Runs work in a process that ends itself some time. What the work reports comes back as the last
/// number reported, 0 for none.
int lastReportOf(const std::function<void(const std::function<void(int)>&)>& work);
