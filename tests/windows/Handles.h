// What this process holds, to see whether something leaks.
#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <string>

namespace gui {

// How many drawing objects of each type: "fonts", "bitmaps", "brushes", "regions"... Counted in the
// process's own table: GetGuiResources answers 0 under Wine.
std::map<std::string, int> GdiObjects();
// All windows of the process, hidden and inner ones and those without a parent included.
int Windows();
// What is taken from all heaps of the process.
long long HeapBytes();
// Timers of the calling thread that tick at least every 50 milliseconds; their ticks go nowhere.
int Timers();

struct Held {
    std::map<std::string, int> ObjectsOf; // of each type whose count changed
    int Objects = 0, Windows = 0;
    long long Bytes = 0;
    int Lives = 0; // that have come and gone
};
std::ostream& operator<<(std::ostream& out, const Held& held);

// What that many lives leave behind, in full: how much more there is of each. Some lives come
// first, for what is made once and kept. On a machine with much else to do it ends after a
// minute, yet not before two hundred lives, unless ZC_SOAK asks for them all.
Held LeftBy(int lives, const std::function<void()>& live);

} // namespace gui
