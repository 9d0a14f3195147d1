// The text that an encoding is written in, and the table that it stands for. The form of
// the text is told in docs/encoding-source.md.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace rulesource {

// A table with the places that its parts came from. Lines are 1-based; 0 means none.
struct Table {
    struct Marker {
        std::u16string text;
        std::size_t line = 0;
    };
    struct Rule {
        std::u16string find;
        std::u16string replace;
        std::size_t line = 0;
    };
    Marker reph;
    Marker yaPhala;
    std::vector<Rule> rules;
};

// Something to say about a line (0: about the whole table). An error makes the table
// useless, a warning does not.
struct Message {
    std::size_t line = 0;
    bool error = false;
    std::u16string text;
};

// Reads a source. All mistakes of the text become messages in line order; the table holds
// what could be read and is complete where no message is an error.
Table Parse(std::string_view bytes, std::vector<Message>& messages);

// Reads the payload of a plug-in. Raises failure 9 as LoadTable does, naming the line. Fields
// behind a second TAB are not read.
Table ParsePayload(std::u16string_view payload);

// The payload of a table: both markers and the rules, CR LF between the lines. What the
// payload could not hold, or LoadTable could not load, is an error in messages, and the
// result is then empty.
std::u16string Payload(const Table& table, std::vector<Message>& messages);

// The table as a source that Parse reads back unchanged.
std::u16string Show(const Table& table);
// One text in the notation of a source: items with a blank between them. Inside a marker's
// own definition, and in messages, table is null.
std::u16string ShowText(std::u16string_view units, const Table* table = nullptr);

// The plain form: the payload's lines as UTF-8 with LF between them. False where it cannot
// hold the payload; problem says what stands in the way.
bool PlainFromPayload(std::u16string_view payload, std::string& plain, std::u16string& problem);
bool PayloadFromPlain(std::string_view plain, std::u16string& payload, std::u16string& problem);

// Why a marker can never be worked off: it is empty, or what replaces it holds it again.
// Empty where all is well.
std::u16string EndlessReph(std::u16string_view marker);
std::u16string EndlessYaPhala(std::u16string_view marker);

} // namespace rulesource
