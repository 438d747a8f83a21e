// The jobs with FLTK.
#include "Job.h"

#include <FL/Fl.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Text_Display.H>
#include <FL/Fl_Text_Editor.H>
#include <FL/Fl_Tree.H>
#include <FL/x.H>

#include <algorithm>

/// A window that knows when it was drawn.
class DrawnWindow : public Fl_Double_Window {
public:
    DrawnWindow() : Fl_Double_Window(windowWidth, windowHeight) {}
    void flush() override
    {
        Fl_Double_Window::flush();
        isDrawn = true;
    }
    void untilDrawn()
    {
        isDrawn = false;
        redraw();
        for (Fl::flush(); !isDrawn; Fl::flush())   // wait() flushes before it waits, not behind
            Fl::wait();
        XSync(fl_display, False);
    }
    bool isDrawn = false;
};

static void start(const Job& job)
{
    DrawnWindow window;
    Fl_Menu_Bar bar(0, 0, windowWidth, 25);
    for (int m = 0; m < menus; ++m)
        for (int i = 0; i < entriesPerMenu; ++i)
            bar.add((title("Menu ", m) + title("/Entry ", i)).c_str());
    Fl_Text_Buffer buffer;
    Fl_Text_Editor text(0, 30, windowWidth, 330);
    text.buffer(buffer);
    buffer.text("hello, world\n");
    for (int i = 0; i < buttons; ++i)
        (new Fl_Button(10 + i % 5 * 100, 370 + i / 5 * 30, 95, 25))->copy_label(title("Button ", i).c_str());
    window.end();
    window.show();
    window.untilDrawn();
    job.done();
}

static void outline(Job& job)
{
    DrawnWindow window;
    Fl_Tree tree(0, 0, windowWidth, windowHeight);
    tree.showroot(0);
    window.end();
    window.show();
    window.untilDrawn();
    job.begin();
    for (int g = 0; g < groups; ++g) {
        Fl_Tree_Item* group = tree.add(tree.root(), groupName(g).c_str());
        for (int i = 0; i < childrenPerGroup; ++i)
            tree.add(group, nodeName(g, i).c_str());
    }
    window.untilDrawn();
    job.done();
}

struct Console {
    static void readSome(int descriptor, void* self) { static_cast<Console*>(self)->take(descriptor); }
    void take(int descriptor)
    {
        static char bytes[65537];
        const ssize_t count = read(descriptor, bytes, sizeof bytes - 1);
        if (count <= 0) {
            Fl::remove_fd(descriptor);
            ended = true;
            return;
        }
        bytes[count] = '\0';
        buffer.append(bytes);
        lines += static_cast<int>(std::count(bytes, bytes + count, '\n'));
        if (lines > keptLines) {
            buffer.remove(0, buffer.skip_lines(0, lines - keptLines));
            lines = keptLines;
        }
        display.insert_position(buffer.length());
        display.show_insert_position();
    }

    DrawnWindow window;
    Fl_Text_Buffer buffer;
    Fl_Text_Display display{0, 0, windowWidth, windowHeight};
    int lines = 0;
    bool ended = false;
};

static void console(Job& job)
{
    Console console;
    console.display.textfont(FL_COURIER);
    console.display.buffer(console.buffer);
    console.window.end();
    console.window.show();
    console.window.untilDrawn();
    job.begin();
    FILE* pipe = popen(writer, "r");
    Fl::add_fd(fileno(pipe), FL_READ, Console::readSome, &console);
    while (!console.ended)
        Fl::wait();
    console.window.untilDrawn();
    job.done();
}

int main(int argc, char** argv)
{
    Job job(argc, argv);
    if (job.is("start"))
        start(job);
    else if (job.is("outline"))
        outline(job);
    else
        console(job);
}
