// Tested by tests/unit/engine/clsConvert_test.cpp and Differential_test.cpp.

#include "engine/Engine.h"

#include "base/RuntimeFailure.h"
#include "engine/LiteralPasses.h"
#include "engine/PlainRules.h"

void Engine::CheckTable() const {
    if (m_Table.IsErased()) throw RuntimeFailure(kSubscriptOutOfRange, u"clsConvert");
    if (m_Table.m_Find.size() > RuleTable::kMostRules) throw RuntimeFailure(kOverflow, u"clsConvert");
}

std::u16string Engine::ConvertLine(std::u16string_view line) const {
    std::u16string work(line);
    std::u16string spare;
    ApplyRules(m_Table, work, spare);
    const literal::Markers markers{m_Table.m_RephMarker, m_Table.m_YaPhalaMarker};
    literal::ResolveReph(work, markers);
    literal::ReorderChandrabindu(work, markers);
    literal::ResolveYaPhala(work, markers);
    literal::ComposeAa(work);
    literal::ReorderPreBaseKars(work);
    literal::ComposeSplitKars(work);
    return work;
}
