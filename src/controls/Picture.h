// A picture as a value: it holds all its sizes, with alpha, and the fitting one is picked
// when it is drawn.
#pragma once

#include "base/win.h"

#include <memory>
#include <string>
#include <string_view>

class Picture {
public:
    Picture() = default;
    // The picture of that name among the program's resources ("paste"). Raises failure
    // 13 where there is none or it is damaged.
    static Picture FromResource(std::u16string_view name);
    // From the file form that tools/make-pictures.py writes. Raises failure 13 where a size
    // or a count does not hold.
    static Picture FromBytes(std::string_view bytes);

    bool Empty() const { return !m_Data; }
    bool operator==(const Picture&) const = default;
    // Size at 96 DPI of its smallest version; 0 by 0 for none.
    SIZE Size() const;
    // Fills place; where no stored size is as large, the next larger one is scaled. Disabled: grey at
    // half strength. Nothing is drawn for an empty picture or an empty place.
    void Draw(HDC dc, const RECT& place, int dpi, bool disabled = false) const;
    // Under high contrast the picture stands on a white plate, 2 pixels larger.
    void DrawOnPlate(HDC dc, const RECT& place, int dpi, bool disabled = false) const;

private:
    struct Data;
    std::shared_ptr<const Data> m_Data;
};
