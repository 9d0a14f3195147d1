// From fast to slow: the machine for rules and passes; the machine for rules alone, then the
// passes over the line; rule after rule, then the passes. Markers that the passes read otherwise,
// or of several units, leave the machine with the rules.
//
// Tested by tests/unit/engine/clsConvert_test.cpp and Differential_test.cpp.

#include "engine/Engine.h"

#include "base/Text.h"
#include "engine/BanglaUnits.h"
#include "engine/PlainRules.h"

namespace {

std::u16string Widen(std::string_view cp1252) {
    return text::FromCp1252(cp1252);
}
std::u16string_view Widen(std::u16string_view units) {
    return units;
}

} // namespace

void Engine::Load(std::u16string_view payload) {
    try {
        m_Table.Read(payload);
    } catch (const RuntimeFailure&) {
        Derive();
        throw;
    }
    Derive();
}

void Engine::UnLoad() {
    m_Table.Erase();
    Derive();
}

void Engine::CheckTable() const {
    if (m_Table.IsErased()) throw RuntimeFailure(kSubscriptOutOfRange, u"clsConvert");
    if (m_Table.m_Find.size() > RuleTable::kMostRules) throw RuntimeFailure(kOverflow, u"clsConvert");
}

void Engine::Derive() {
    m_Lines16.reset();
    m_Lines8.reset();
    for (Fast* fast : {&m_Whole, &m_Rules}) {
        fast->machine.reset();
        fast->rest = 0;
    }
    if (m_Table.IsErased() || m_Table.m_Find.size() > RuleTable::kMostRules) return;
    const std::u16string& reph = m_Table.m_RephMarker;
    const std::u16string& yaPhala = m_Table.m_YaPhalaMarker;
    m_Passes.SetMarkers(reph, yaPhala);
    const bool ordinaryMarkers = bangla::AreOrdinaryMarkers(reph, yaPhala);
    m_Chain.Build(m_Table);
    m_Growth.Build(m_Table, m_Limits.LongestLine);
    std::u16string known = m_Chain.UnitsInFinds();
    for (char16_t unit = 0x0980; unit < 0x0A00; ++unit) {
        if (bangla::ClassOf(unit) != 0) known += unit;
    }
    if (ordinaryMarkers) known += reph + yaPhala;
    if (!m_Alphabet.Build(known)) return;
    m_Rules.machine.emplace(m_Alphabet, m_Chain, nullptr, m_Limits.Machine);
    if (!ordinaryMarkers) return;
    m_Segments.Build();
    m_Whole.machine.emplace(m_Alphabet, m_Chain, &m_Segments, m_Limits.Machine);
    m_SyllablePasses.SetMarkers(reph[0], yaPhala[0]);
    m_Lines16.emplace(m_Chain, m_SyllablePasses, OutputEncoding::Utf16);
    m_Lines8.emplace(m_Chain, m_SyllablePasses, OutputEncoding::Utf8);
}

bool Engine::ConvertLines(std::string_view block, LineEnd cut, OutputEncoding encoding,
                          OutputBuffer& output) {
    std::optional<SyllableMachine>& machine = encoding == OutputEncoding::Utf16 ? m_Lines16 : m_Lines8;
    if (!machine || m_Growth.MayOutgrow(block)) return false;
    const auto otherWay = [&](std::string_view line, OutputBuffer& lineOutput) {
        m_OtherLine.Clear();
        Convert(line, m_OtherLine);
        AppendUnits(m_OtherLine.View(), encoding, lineOutput);
    };
    return machine->ConvertBlock(block, cut, output, otherWay);
}

// False where the machine is not to be used for the line, or gave it up; output is then as before.
template <class Unit>
bool Engine::RunFast(Fast& fast, std::basic_string_view<Unit> line, UnitBuffer& output) {
    if (!fast.Ready() || m_Growth.MayOutgrow(line)) return false;
    Machine& machine = *fast.machine;
    const std::size_t before = output.Size();
    machine.BeginLine(line.size());
    const std::uint32_t state = machine.Run(machine.Start(), line.data(), line.size(), output);
    if (state != Machine::kGaveUp && machine.Finish(state, output)) return true;
    output.SetSize(before);
    if (machine.LineAskedForTooMuch()) fast.rest = m_Limits.LinesAfterGivingUp;
    return false;
}

template <class Unit>
void Engine::Convert(std::basic_string_view<Unit> line, UnitBuffer& output) {
    if (!RunFast(m_Whole, line, output)) ConvertByLine(Widen(line), output);
}

template void Engine::Convert(std::string_view, UnitBuffer&);
template void Engine::Convert(std::u16string_view, UnitBuffer&);

void Engine::ConvertByLine(std::u16string_view line, UnitBuffer& output) {
    m_Line.Clear();
    if (!RunFast(m_Rules, line, m_Line)) {
        m_Work.assign(line);
        ApplyRules(m_Table, m_Work, m_Spare, m_Limits.LongestLine);
        m_Line.Append(m_Work);
    }
    m_Passes.Run(m_Line);
    output.Append(m_Line.View());
}
