// The rows of all lists, as screen readers find and choose them.
#include "controls/ComboField.h"
#include "windows/EveryForm.h"

#include <atomic>
#include <thread>

namespace {

constexpr LONG kSelect = SELFLAG_TAKESELECTION, kSelectAndFocus = SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS;
constexpr LONG kChosen = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;

class SpokenRows : public gui::FormTest<gui::EveryForm> {
protected:
    std::vector<Control*> Lists() {
        return {&m_Shown->Rows.Base, &m_Shown->Table.Base, &m_Shown->Ticks.Base};
    }
    void Make(int current) {
        m_Ui.Run([&] {
            m_Shown->Rows.ListIndex(current);
            m_Shown->Table.ListIndex(current);
            m_Shown->Ticks.ListIndex(current);
        });
        m_Ui.Settle();
    }
};

TEST_F(SpokenRows, ASelectedRowIsCurrentOnceTheQueueIsDone) {
    for (Control* list : Lists()) {
        SCOPED_TRACE(text::ToUtf8(list->Name()));
        std::unique_ptr<gui::HeardEvents> heard;
        m_Ui.Run([&] {
            heard = std::make_unique<gui::HeardEvents>();
            EXPECT_EQ(gui::Select(list->hWnd(), kSelectAndFocus, 2), S_OK);
        });
        m_Ui.Settle();
        EXPECT_EQ(Said(*list).Selection, 2);
        EXPECT_EQ(Said(*list).Focus, 2);
        EXPECT_EQ(Said(*list, 2).State & kChosen, kChosen);
        EXPECT_EQ(Said(*list, 1).State & kChosen, 0);
        EXPECT_EQ(heard->Count(EVENT_OBJECT_SELECTION, list->hWnd(), 2), 1);
        EXPECT_GE(heard->Count(EVENT_OBJECT_FOCUS, list->hWnd(), 2), 1);
        m_Ui.Run([&] { heard.reset(); });
    }
}

TEST_F(SpokenRows, ASelectedRowOfADroppedListIsMarkedOnceTheQueueIsDone) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    for (Control* combo : {&m_Shown->Choice->Base, &m_Shown->Faces.Base}) {
        m_Ui.Run([&] {
            combo->SetFocus();
            ComboField::Toggle(*combo);
            GetComboBoxInfo(combo->hWnd(), &parts);
            EXPECT_EQ(gui::Select(parts.hwndList, kSelect, 2), S_OK);
        });
        m_Ui.Settle();
        EXPECT_EQ(On([&] { return gui::Ask(parts.hwndList).Selection; }), 2);
        EXPECT_EQ(On([&] { return gui::Ask(parts.hwndList, 2).State & kChosen; }), kChosen);
        m_Ui.Run([&] { ComboField::Toggle(*combo); });
    }
}

// A handler may show a modal form: no screen reader waits for its end.
TEST_F(SpokenRows, HandlersRunOutOfTheQueue) {
    std::vector<std::string> log;
    const auto note = [&](const char* what) { return [&log, what] { log.push_back(what); }; };
    m_Ui.Run([&] {
        m_Shown->Rows.SelChange = note("list selected");
        m_Shown->Rows.Click = note("list clicked");
        m_Shown->Table.SelChange = note("table selected");
        for (Control* list : Lists()) EXPECT_EQ(gui::Select(list->hWnd(), kSelect, 3), S_OK);
        EXPECT_TRUE(log.empty());
    });
    // That of the table has a second way through the queue.
    EXPECT_TRUE(Becomes([&] { return log.size() == 3; }));
    EXPECT_EQ(log, (std::vector<std::string>{"list selected", "list clicked", "table selected"}));
}

TEST_F(SpokenRows, ASelectionThatShowsAModalFormIsAnsweredAtOnce) {
    Form ask;
    std::atomic<bool> answered = false;
    m_Ui.Run([&] {
        ask.Create(u"form\nf\t\tfrmAsk\tform\t\t\t3000\t1500\tAsk\t\t\n");
        m_Shown->Rows.SelChange = [&] { ask.ShowModal(&m_Shown->Window); };
    });
    std::thread reader([&] {
        CoInitialize(nullptr);
        EXPECT_EQ(gui::Select(m_Shown->Rows.Base.hWnd(), kSelect, 2), S_OK);
        answered = true;
        CoUninitialize();
    });
    EXPECT_TRUE(Becomes([&] { return IsWindowVisible(ask.Base.hWnd()) != 0; }));
    EXPECT_TRUE(gui::WaitUntil([&] { return answered.load(); }));
    EXPECT_EQ(Said(m_Shown->Rows.Base).Selection, 2); // also while the handler is at work
    m_Ui.Run([&] { ask.Unload(); });
    reader.join();
}

TEST_F(SpokenRows, WhatCannotBeReachedIsNotSelected) {
    Make(0);
    for (Control* list : Lists()) {
        SCOPED_TRACE(text::ToUtf8(list->Name()));
        m_Ui.Run([&] {
            EXPECT_EQ(gui::Select(list->hWnd(), kSelect, 4), E_INVALIDARG);
            // On its way when the list is disabled.
            EXPECT_EQ(gui::Select(list->hWnd(), kSelect, 2), S_OK);
            list->Enabled(false);
        });
        m_Ui.Settle();
        m_Ui.Run([&] { EXPECT_EQ(gui::Select(list->hWnd(), kSelect, 2), S_FALSE); });
        m_Ui.Settle();
        EXPECT_EQ(Said(*list).Selection, 1);
    }
}

TEST_F(SpokenRows, ARowThatHasGoneMeanwhileIsNotSelected) {
    Make(0);
    m_Ui.Run([&] {
        for (Control* list : Lists()) EXPECT_EQ(gui::Select(list->hWnd(), kSelect, 3), S_OK);
        m_Shown->Rows.Remove(1);
        m_Shown->Table.Remove(1);
        m_Shown->Ticks.Clear();
    });
    m_Ui.Settle();
    EXPECT_EQ(On([&] { return m_Shown->Rows.ListIndex(); }), 0);
    EXPECT_EQ(On([&] { return m_Shown->Table.ListIndex(); }), 0);
    EXPECT_EQ(On([&] { return m_Shown->Ticks.ListIndex(); }), -1);
}

TEST_F(SpokenRows, AListThatGetsTheFocusTellsOfItsCurrentRow) {
    for (const int current : {-1, 1}) {
        if (current >= 0) Make(current);
        for (Control* list : Lists()) {
            SCOPED_TRACE(text::ToUtf8(list->Name()) + " " + std::to_string(current));
            std::unique_ptr<gui::HeardEvents> heard;
            m_Ui.Run([&] {
                m_Shown->Go->Base.SetFocus();
                heard = std::make_unique<gui::HeardEvents>();
                list->SetFocus();
            });
            EXPECT_TRUE(FocusComesTo(*list));
            int rows = 0;
            for (int child = 1; child <= 3; ++child)
                rows += heard->Count(EVENT_OBJECT_FOCUS, list->hWnd(), child);
            EXPECT_EQ(rows, current >= 0 ? 1 : 0);
            EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, list->hWnd(), 2), current >= 0 ? 1 : 0);
            m_Ui.Run([&] { heard.reset(); });
        }
    }
}

} // namespace
