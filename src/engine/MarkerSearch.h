// Looks for a marker, or another text, unit by unit, as Knuth, Morris and Pratt do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class MarkerSearch {
public:
    void SetMarker(std::u16string_view marker) {
        m_Marker = marker;
        m_Border.assign(marker.size() + 1, 0);
        for (std::size_t i = 1; i < marker.size(); ++i)
            m_Border[i + 1] = static_cast<std::uint32_t>(Next(m_Border[i], marker[i]));
    }
    std::u16string_view Marker() const { return m_Marker; }
    std::size_t Length() const { return m_Marker.size(); }

    // So many units of the marker stand at the end of the text once unit is behind it; matched
    // of them stood there before. The marker's length says that all of it stands there.
    std::size_t Next(std::size_t matched, char16_t unit) const {
        while (matched > 0 && (matched == m_Marker.size() || m_Marker[matched] != unit))
            matched = m_Border[matched];
        return matched < m_Marker.size() && m_Marker[matched] == unit ? matched + 1 : 0;
    }
    // Where the marker first stands in the text from a place on; npos where it does not.
    std::size_t FirstIn(std::u16string_view text, std::size_t from) const {
        std::size_t matched = 0;
        for (std::size_t at = from; at < text.size(); ++at) {
            matched = Next(matched, text[at]);
            if (matched == m_Marker.size()) return at + 1 - matched;
        }
        return std::u16string_view::npos;
    }
    // So many units of it stand at the end of the text.
    std::size_t AtEndOf(std::u16string_view text) const {
        std::size_t matched = 0;
        for (const char16_t unit : text) matched = Next(matched, unit);
        return matched;
    }

private:
    std::u16string m_Marker;
    std::vector<std::uint32_t> m_Border; // by units matched: how many of them also begin the marker
};
