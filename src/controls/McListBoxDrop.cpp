// Files that are dropped on a list. Whatever else is dragged over it is turned away.
//
// Tested by tests/windows/mclistbox_drop_test.cpp.
#include "controls/ComObject.h"
#include "controls/Dpi.h"
#include "controls/EventFrame.h"
#include "controls/McListBox.h"
#include "controls/modWin.h"

#include <ole2.h>
#include <shellapi.h>

#include <utility>

namespace {

FORMATETC FileFormat() {
    return {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

std::vector<std::u16string> ReadFiles(IDataObject& data) {
    std::vector<std::u16string> files;
    FORMATETC format = FileFormat();
    STGMEDIUM medium{};
    if (FAILED(data.GetData(&format, &medium))) return files;
    if (medium.tymed == TYMED_HGLOBAL) {
        const auto drop = static_cast<HDROP>(medium.hGlobal);
        const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
        for (UINT i = 0; i < count; ++i) {
            std::u16string path(DragQueryFileW(drop, i, nullptr, 0), u'\0');
            DragQueryFileW(drop, i, Wide(path.data()), static_cast<UINT>(path.size() + 1));
            files.push_back(std::move(path));
        }
    }
    ReleaseStgMedium(&medium);
    return files;
}

int Buttons(DWORD keys) {
    return (keys & MK_LBUTTON ? kLeftButton : 0) | (keys & MK_RBUTTON ? kRightButton : 0) |
           (keys & MK_MBUTTON ? kMiddleButton : 0);
}

int Shift(DWORD keys) {
    return (keys & MK_SHIFT ? kShiftMask : 0) | (keys & MK_CONTROL ? kCtrlMask : 0) |
           (keys & MK_ALT ? kAltMask : 0);
}

} // namespace

class ListDropTarget final : public ComObject<IDropTarget, IID_IDropTarget> {
public:
    explicit ListDropTarget(McListBox& list) : m_List(&list) {}
    void Disconnect() { m_List = nullptr; }

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL, DWORD* effect) override {
        return EventFrame::Run<HRESULT>(E_FAIL, [&] {
            FORMATETC format = FileFormat();
            m_HasFiles = data && data->QueryGetData(&format) == S_OK;
            m_Buttons = Buttons(keys);
            return Answer(effect);
        });
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL, DWORD* effect) override {
        return EventFrame::Run<HRESULT>(E_FAIL, [&] {
            m_Buttons = Buttons(keys);
            return Answer(effect);
        });
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override {
        return EventFrame::Run<HRESULT>(E_FAIL, [&]() -> HRESULT {
            const DWORD allowed = *effect;
            Answer(effect);
            if (*effect == DROPEFFECT_NONE || !data) return S_OK;
            const DroppedData dropped{ReadFiles(*data)};
            POINT inside{at.x, at.y};
            ScreenToClient(m_List->Base.hWnd(), &inside);
            const int dpi = m_List->Base.Dpi();
            int outcome = DROPEFFECT_COPY;
            // The button was let go for this to come.
            Raise(m_List->OLEDragDrop, dropped, outcome, m_Buttons, Shift(keys), ToTwips(inside.x, dpi),
                  ToTwips(inside.y, dpi));
            *effect = static_cast<DWORD>(outcome) & allowed;
            return S_OK;
        });
    }

private:
    HRESULT Answer(DWORD* effect) const {
        const bool takes =
            m_HasFiles && m_List && m_List->OLEDragDrop && m_List->Base.Usable() && !EventFrame::Ending();
        *effect &= takes ? static_cast<DWORD>(DROPEFFECT_COPY) : static_cast<DWORD>(DROPEFFECT_NONE);
        return S_OK;
    }

    McListBox* m_List;
    bool m_HasFiles = false;
    int m_Buttons = 0;
};

void McListBox::AcceptDrops() {
    m_Drop = new ListDropTarget(*this);
    RegisterDragDrop(Base.hWnd(), m_Drop);
}

void McListBox::EndDrops() {
    if (!m_Drop) return;
    if (Base.hWnd()) RevokeDragDrop(Base.hWnd());
    m_Drop->Disconnect();
    m_Drop->Release();
    m_Drop = nullptr;
}
