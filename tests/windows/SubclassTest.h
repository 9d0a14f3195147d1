// A window whose procedure and clients write down when they are called.
#pragma once

#include "controls/MSubclass.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace subclass {

constexpr UINT kMessage = WM_USER + 7;
constexpr UINT kOther = WM_USER + 8;
constexpr LRESULT kPreviousAnswer = 70;

inline std::vector<std::string> g_Log; // who was called, in order

inline LRESULT CALLBACK Previous(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kMessage || message == kOther) {
        g_Log.push_back("previous");
        return kPreviousAnswer;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

class Client final : public ISubclass {
public:
    Client(const char* name, int response, LRESULT answer = 0)
        : m_Name(name), m_Response(response), m_Answer(answer) {}

    int MsgResponse() override { return m_Response; }
    void MsgResponse(int response) override { m_Response = response; }
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override {
        g_Log.push_back(m_Name);
        m_Seen = {hWnd, iMsg, wParam, lParam, {}, {}};
        const LRESULT answer = m_Answer;
        const auto within = m_Within; // may end this client
        if (within) within();
        return answer;
    }

    std::function<void()> m_Within;
    MSG m_Seen{};

private:
    std::string m_Name;
    int m_Response;
    LRESULT m_Answer;
};

using Calls = std::vector<std::string>;

class SubclassTest : public testing::Test {
protected:
    void SetUp() override {
        g_Log.clear();
        m_Window = gui::MakeWindow(nullptr, {10, 10, 60, 60}, Previous);
    }
    void TearDown() override {
        if (IsWindow(m_Window)) DestroyWindow(m_Window);
    }

    LRESULT Send(UINT message = kMessage) { return SendMessageW(m_Window, message, 3, 4); }
    bool IsOriginal() const {
        return GetWindowLongPtrW(m_Window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(Previous);
    }
    std::wstring Digits() const { return std::to_wstring(reinterpret_cast<LONG_PTR>(m_Window)); }
    void* Property(const std::wstring& name) const { return GetPropW(m_Window, name.c_str()); }
    LONG_PTR Count(const std::wstring& name) const { return reinterpret_cast<LONG_PTR>(Property(name)); }
    void Attach(Client& client, UINT message = kMessage) {
        MSubclass::AttachMessage(client, m_Window, message);
    }
    void Detach(Client& client, UINT message = kMessage) {
        MSubclass::DetachMessage(client, m_Window, message);
    }

    HWND m_Window = nullptr;
};

struct Counted {
    std::wstring digits;
    int count = 0;
};

inline BOOL CALLBACK CountProperty(HWND, LPWSTR name, HANDLE, ULONG_PTR counted) {
    auto& to = *reinterpret_cast<Counted*>(counted);
    if (!IS_INTRESOURCE(name) && std::wstring(name).find(to.digits) != std::wstring::npos) ++to.count;
    return TRUE;
}

// Properties that name the window's handle; the system may keep others there.
inline int Properties(HWND window) {
    Counted counted{std::to_wstring(reinterpret_cast<LONG_PTR>(window))};
    EnumPropsExW(window, CountProperty, reinterpret_cast<ULONG_PTR>(&counted));
    return counted.count;
}

} // namespace subclass
