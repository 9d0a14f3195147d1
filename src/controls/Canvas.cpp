// The bitmap stays in its context: taking it in is what asks the system most.
//
// Tested by tests/windows/mclistbox_look_test.cpp and shaped_form_test.cpp.
#include "controls/Canvas.h"

Canvas::Canvas(HDC like, SIZE size)
    : m_Size(size), m_Dc(CreateCompatibleDC(like)), m_Bitmap(CreateCompatibleBitmap(like, size.cx, size.cy)),
      m_Before(SelectObject(m_Dc, m_Bitmap)) {}

Canvas::~Canvas() {
    SelectObject(m_Dc, m_Before);
    DeleteObject(m_Bitmap);
    DeleteDC(m_Dc);
}
