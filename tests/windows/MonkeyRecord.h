// The steps of a run, written down before each is done, so that what ends the program is told
// with the step that brought it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gui {

class MonkeyRecord {
public:
    // While it lives a crash prints where it was and Tell().
    explicit MonkeyRecord(std::uint64_t seed);
    ~MonkeyRecord();
    MonkeyRecord(const MonkeyRecord&) = delete;
    MonkeyRecord& operator=(const MonkeyRecord&) = delete;

    void Add(const std::string& step) { m_Steps.push_back(step); }
    // The last steps, and what runs them all again.
    std::string Tell() const;

private:
    std::uint64_t m_Seed;
    std::vector<std::string> m_Steps;
};

} // namespace gui
