// What a list of many rows costs on the screen, as the rows of a table: milliseconds of
// whole operations, the least of some rounds. A Windows program; ./run bench runs it.
#include "base/DoEvents.h"
#include "base/Text.h"
#include "controls/Form.h"
#include "controls/McListBox.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmBench\tform\t\t\t4500\t4500\tBench\t\tBackColor=FrameTop\n"
    u"f\tfrmBench\tFiles\tMcListBox\t150\t150\t3705\t2130\t\t1\tAppearance=0; RowHeight=20; ShowIcon=yes; "
    u"ShowHover=yes; IconFocus=no; FullRowSelect=yes; FocusRectangle=yes; AutoHideScrollBars=yes; "
    u"SelGradient=1; ForeColor=Ink; SelColor=Sel; SelGradientCol=SelGrad; AccessibleName=Files\n"
    u"f\tfrmBench\tImages\tMcImageList\t0\t0\t0\t0\t\t\tImageCount=1; Images0=task-text\n";

struct BenchForm {
    Form Window;
    McListBox Files;
    McImageList Images;
    BenchForm() {
        Window.Bind(u"Files", Files).Bind(u"Images", Images).Create(kLayout);
        Files.ImageList(&Images);
        Window.Show();
        DoEvents();
    }
};

std::u16string NameOf(int row) {
    return u"C:\\Documents\\Letters\\letter " + text::Decimal(row) + u".txt";
}

void Fill(McListBox& list, int rows) {
    for (int row = 0; row < rows; ++row) list.AddItem(NameOf(row), -1, 0);
}

// The message that comes from outside, and what it asks to be painted.
void Send(McListBox& list, UINT message, WPARAM wParam) {
    SendMessageW(list.Base.hWnd(), message, wParam, 0);
    UpdateWindow(list.Base.hWnd());
}

struct Job {
    const char* Name;
    void (*Prepare)(McListBox& list, int rows);
    void (*Do)(McListBox& list, int rows);
    int Times; // how often a round does it
};
const Job kJobs[] = {
    {"add all the rows", [](McListBox& list, int) { list.Clear(); },
     [](McListBox& list, int rows) { Fill(list, rows); }, 1},
    {"refresh", [](McListBox&, int) { SetFocus(nullptr); }, [](McListBox& list, int) { list.Refresh(); },
     100},
    {"refresh with a focused row", nullptr, [](McListBox& list, int) { list.Refresh(); }, 100},
    {"scroll by a row", [](McListBox& list, int) { Send(list, WM_VSCROLL, SB_TOP); },
     [](McListBox& list, int) { Send(list, WM_VSCROLL, SB_LINEDOWN); }, 100},
    {"scroll by a page", [](McListBox& list, int) { Send(list, WM_VSCROLL, SB_TOP); },
     [](McListBox& list, int) { Send(list, WM_VSCROLL, SB_PAGEDOWN); }, 100},
    {"arrow down", [](McListBox& list, int) { list.ListIndex(0); },
     [](McListBox& list, int) { Send(list, WM_KEYDOWN, VK_DOWN); }, 100},
    {"from the first row to the last and back", nullptr,
     [](McListBox& list, int) {
         Send(list, WM_KEYDOWN, VK_END);
         Send(list, WM_KEYDOWN, VK_HOME);
     },
     10},
    {"a letter that no row begins with", nullptr, [](McListBox& list, int) { Send(list, WM_CHAR, 'x'); }, 10},
    {"remove the first row", nullptr, [](McListBox& list, int) { list.Remove(0); }, 10},
    {"remove the last row", nullptr, [](McListBox& list, int) { list.Remove(list.ListCount() - 1); }, 10},
    {"clear",
     [](McListBox& list, int rows) {
         list.Clear();
         Fill(list, rows);
         list.Refresh();
     },
     [](McListBox& list, int) { list.Clear(); }, 1},
};

double Now() {
    LARGE_INTEGER ticks, perSecond;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&perSecond);
    return 1000.0 * static_cast<double>(ticks.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

double Measure(McListBox& list, const Job& job, int rows) {
    constexpr int kRounds = 5;
    double least = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        if (job.Prepare) job.Prepare(list, rows);
        UpdateWindow(list.Base.hWnd());
        const double from = Now();
        for (int i = 0; i < job.Times; ++i) job.Do(list, rows);
        least = std::min(least, (Now() - from) / job.Times);
        DoEvents();
    }
    return least;
}

} // namespace

int main() {
    BenchForm form;
    for (const Job& job : kJobs) {
        std::printf("| %s |", job.Name);
        for (const int rows : {100, 10'000, 100'000}) {
            form.Files.Clear();
            Fill(form.Files, rows);
            form.Files.Refresh();
            form.Files.Base.SetFocus();
            std::printf(" %.3f |", Measure(form.Files, job, rows));
        }
        std::printf("\n");
        std::fflush(stdout);
    }
    return 0;
}
