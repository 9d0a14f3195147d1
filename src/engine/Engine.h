// What clsConvert is made of: the table as loaded, and everything that is derived from it to
// convert fast. Each way to convert a line gives the same; the faster ones give up where they
// do not fit.
#pragma once

#include "base/RuntimeFailure.h"
#include "engine/Alphabet.h"
#include "engine/Growth.h"
#include "engine/LinearPasses.h"
#include "engine/Machine.h"
#include "engine/OutputBuffer.h"
#include "engine/RuleChain.h"
#include "engine/RuleTable.h"
#include "engine/Segments.h"
#include "engine/SyllableMachine.h"
#include "engine/SyllablePasses.h"

#include <optional>
#include <string>
#include <string_view>

struct EngineLimits {
    MachineLimits Machine;
    std::size_t LinesAfterGivingUp = 64; // converted without the machine before it is tried again
    std::size_t LongestLine = kLongestLine;
};

class Engine {
public:
    explicit Engine(const EngineLimits& limits = {})
        : m_Limits(limits), m_Passes(limits.LongestLine), m_Segments(m_Passes) {}
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    // Reads a payload; raises what RuleTable::Read raises, with what was read in force.
    void Load(std::u16string_view payload);
    void UnLoad();
    // Raises what concerns the table as a whole.
    void CheckTable() const;

    // Appends what the line becomes; raises the failures of a line, and output may then have
    // grown. Unit is char for cp1252 or char16_t.
    template <class Unit>
    void Convert(std::basic_string_view<Unit> line, UnitBuffer& output);

    // Converts a block of whole lines at once and appends them. False with output as it was
    // where that does not pay or a line fails.
    bool ConvertLines(std::string_view block, LineEnd cut, OutputEncoding encoding, OutputBuffer& output);

    // The same as Convert without the machine for the whole conversion.
    void ConvertByLine(std::u16string_view line, UnitBuffer& output);

private:
    // A machine and how long it is left alone after it gave up.
    struct Fast {
        std::optional<Machine> machine;
        std::size_t rest = 0;
        bool Ready() {
            if (!machine || !machine->Pays()) return false;
            if (rest == 0) return true;
            --rest;
            return false;
        }
    };

    void Derive();
    template <class Unit>
    bool RunFast(Fast& fast, std::basic_string_view<Unit> line, UnitBuffer& output);

    RuleTable m_Table;
    EngineLimits m_Limits;
    RuleChain m_Chain;
    Growth m_Growth;
    Alphabet m_Alphabet;
    LinearPasses m_Passes;
    Segments m_Segments;
    Fast m_Whole, m_Rules;
    SyllablePasses m_SyllablePasses;
    std::optional<SyllableMachine> m_Lines16, m_Lines8;
    UnitBuffer m_Line, m_OtherLine;
    std::u16string m_Work, m_Spare;
};
