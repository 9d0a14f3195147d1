// A bitmap with a context that draws into it, for what is drawn unseen first.
#pragma once

#include "base/win.h"

class Canvas {
public:
    // Of the kind that like shows, in pixels.
    Canvas(HDC like, SIZE size);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Dc() const { return m_Dc; }
    // Nothing where there was no memory for it.
    SIZE Size() const { return m_Bitmap ? m_Size : SIZE{}; }

private:
    SIZE m_Size;
    HDC m_Dc;
    HBITMAP m_Bitmap;
    HGDIOBJ m_Before;
};
