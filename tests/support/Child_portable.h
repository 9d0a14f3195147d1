// Parts of a test that need a process of their own: other rights, other mounts, a death.
#pragma once

#include <functional>
#include <string>

// Runs work in a forked child and returns the text that it returned; where the child died
// instead, "died: " and how. As nobody the child gives up root's rights first (nothing to
// give up where the test runs without them).
std::string InChild(const std::function<std::string()>& work);
std::string InChildAsNobody(const std::function<std::string()>& work);

// For a child: a new small tmpfs over folder, seen by this process alone. Empty, or why it
// could not be mounted.
std::string MountSmallDisk(const std::string& folder, const std::string& size);

// For a child: from now on the system call with this number fails with error.
bool FailCall(int number, int error);
