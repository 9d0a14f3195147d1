// Files dropped on a list, by a real drag.
#include "windows/ListForm.h"

#include <ole2.h>
#include <shlobj.h>

#include <atomic>

namespace {

// The interfaces of COM have no virtual destructor; these live on the stack.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// What a program gives that drags files, or something else.
class Dragged final : public IDataObject {
public:
    explicit Dragged(std::vector<std::u16string> files) : m_Files(std::move(files)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        *out = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDataObject) ? this : nullptr;
        return *out ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (QueryGetData(format) != S_OK) return DV_E_FORMATETC;
        std::u16string names;
        for (const auto& file : m_Files) names += file + u'\0';
        names += u'\0';
        const SIZE_T bytes = sizeof(DROPFILES) + names.size() * sizeof(char16_t);
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = GlobalAlloc(GHND, bytes);
        medium->pUnkForRelease = nullptr;
        auto* head = static_cast<DROPFILES*>(GlobalLock(medium->hGlobal));
        head->pFiles = sizeof(DROPFILES);
        head->fWide = TRUE;
        std::copy(names.begin(), names.end(), reinterpret_cast<char16_t*>(head + 1));
        GlobalUnlock(medium->hGlobal);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override {
        return format->cfFormat == CF_HDROP && !m_Files.empty() ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

private:
    std::vector<std::u16string> m_Files;
};

constexpr DWORD kNotYet = 99;

// Drops when the left button is let go; knows what the list last said it would do.
class Dragger final : public IDropSource {
public:
    std::atomic<DWORD> Offered{kNotYet};

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        *out = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropSource) ? this : nullptr;
        return *out ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
        if (escape) return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override {
        Offered = effect;
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }
};

class Drops : public gui::Lists {
protected:
    // Drags over the list's first row, waits for its answer, and lets go. Gives what the
    // list said it would do, and in m_Effect what it says it did.
    DWORD Drag(std::vector<std::u16string> files) {
        Dragged data(std::move(files));
        Dragger source;
        std::atomic<bool> done = false;
        const HWND form = m_Shown->Window.Base.hWnd();
        gui::MoveTo(gui::ToScreen(form, Px(350), Px(10)));
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        EXPECT_TRUE(Becomes([] { return GetKeyState(VK_LBUTTON) < 0; }));
        m_Ui.Post([&] {
            DWORD effect = DROPEFFECT_NONE;
            DoDragDrop(&data, &source, DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect);
            m_Effect = effect;
            m_Failed = EventFrame::Ending();
            MSG message;
            PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
            EventFrame::Forget();
            done = true;
        });
        // The drag goes on with each move of the mouse.
        LONG step = 0;
        const auto moves = [&](POINT to) {
            source.Offered = kNotYet;
            return gui::WaitUntil([&] {
                gui::MoveTo({to.x, to.y + (++step & 1)});
                return source.Offered != kNotYet;
            });
        };
        EXPECT_TRUE(moves(gui::ToScreen(form, Px(350), Px(10))));
        EXPECT_TRUE(moves(m_Over));
        EXPECT_TRUE(moves(m_Over));
        gui::MoveTo(m_Over);
        const DWORD offered = source.Offered;
        gui::Press(MOUSEEVENTF_LEFTUP);
        EXPECT_TRUE(gui::WaitUntil([&] { return done.load(); }));
        return offered & ~static_cast<DWORD>(DROPEFFECT_SCROLL);
    }
    void SetUp() override {
        Lists::SetUp();
        m_Over = On([&] { return gui::ToScreen(Files().Base.hWnd(), Px(40), Px(20)); });
    }
    POINT m_Over{};
    std::atomic<DWORD> m_Effect{0};
    std::atomic<bool> m_Failed = false; // a failure has been kept
};

TEST_F(Drops, FilesArriveInTheirOrderAndAsACopy) {
    std::vector<std::u16string> files;
    int button = 0, shift = -1;
    POINT at{};
    m_Ui.Run([&] {
        Files().OLEDragDrop = [&](const DroppedData& data, int& effect, int b, int s, int x, int y) {
            EXPECT_TRUE(data.GetFormat(15));
            EXPECT_FALSE(data.GetFormat(1));
            EXPECT_EQ(effect, static_cast<int>(DROPEFFECT_COPY));
            files = data.Files;
            button = b;
            shift = s;
            at = {x, y};
        };
    });
    const std::vector<std::u16string> expected{u"C:\\b.txt", u"C:\\\x0995\x09BE.txt",
                                               u"C:\\" + std::u16string(400, u'x') + u".txt"};
    EXPECT_EQ(Drag(expected), static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_EQ(files, expected);
    EXPECT_EQ(m_Effect, static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_EQ(button, 1);
    EXPECT_EQ(shift, 0);
    EXPECT_EQ(at.x, 40 * 15);
    EXPECT_EQ(at.y, 20 * 15);
}

TEST_F(Drops, WhatIsNoFileIsTurnedAway) {
    bool dropped = false;
    m_Ui.Run(
        [&] { Files().OLEDragDrop = [&](const DroppedData&, int&, int, int, int, int) { dropped = true; }; });
    EXPECT_EQ(Drag({}), static_cast<DWORD>(DROPEFFECT_NONE));
    EXPECT_FALSE(dropped);
    EXPECT_EQ(m_Effect, static_cast<DWORD>(DROPEFFECT_NONE));
}

TEST_F(Drops, WithoutAHandlerNothingIsTaken) {
    EXPECT_EQ(Drag({u"C:\\a.txt"}), static_cast<DWORD>(DROPEFFECT_NONE));
}

TEST_F(Drops, ADisabledListTakesNothing) {
    bool dropped = false;
    m_Ui.Run([&] {
        Files().OLEDragDrop = [&](const DroppedData&, int&, int, int, int, int) { dropped = true; };
        Files().Base.Enabled(false);
    });
    EXPECT_EQ(Drag({u"C:\\a.txt"}), static_cast<DWORD>(DROPEFFECT_NONE));
    EXPECT_FALSE(dropped);
}

TEST_F(Drops, BehindAModalFormNothingIsTaken) {
    m_Ui.Run([&] {
        Files().OLEDragDrop = [](const DroppedData&, int&, int, int, int, int) {};
        auto* target = static_cast<IDropTarget*>(GetPropW(Files().Base.hWnd(), L"OleDropTargetInterface"));
        ASSERT_NE(target, nullptr);
        Dragged data({u"C:\\a.txt"});
        const auto offered = [&] {
            DWORD effect = DROPEFFECT_COPY;
            EXPECT_EQ(target->DragEnter(&data, MK_LBUTTON, {}, &effect), S_OK);
            return effect;
        };
        EXPECT_EQ(offered(), static_cast<DWORD>(DROPEFFECT_COPY));
        Form modal;
        modal.Create(u"form\nf\t\tfrmB\tform\t\t\t900\t900\t\t\t\n");
        m_Ui.Post([&] {
            EXPECT_EQ(offered(), static_cast<DWORD>(DROPEFFECT_NONE));
            modal.Hide();
        });
        modal.ShowModal(&m_Shown->Window);
        EXPECT_EQ(offered(), static_cast<DWORD>(DROPEFFECT_COPY));
    });
}

TEST_F(Drops, TheListMayGoInsideTheDrop) {
    m_Ui.Run([&] {
        Files().OLEDragDrop = [&](const DroppedData&, int&, int, int, int, int) { m_Shown->Owned.reset(); };
    });
    Drag({u"C:\\a.txt"});
    EXPECT_TRUE(On([&] { return !m_Shown->Owned; }));
    EXPECT_FALSE(m_Failed);
}

TEST_F(Drops, AFailureOfTheHandlerIsKept) {
    m_Ui.Run([&] {
        Files().OLEDragDrop = [](const DroppedData&, int&, int, int, int, int) {
            throw RuntimeFailure(kTypeMismatch, u"test");
        };
    });
    Drag({u"C:\\a.txt"});
    EXPECT_TRUE(m_Failed);
}

} // namespace
