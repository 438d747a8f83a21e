// The jobs with GTK 3.
#include "Job.h"

#include <gdk/gdkx.h>
#include <glib-unix.h>
#include <gtk/gtk.h>

static Job* job;
static gboolean isDrawn = FALSE;
static GtkWidget* window;

static gboolean noteDraw(GtkWidget*, cairo_t*, gpointer) { return isDrawn = TRUE, FALSE; }

/// Runs the loop until a frame with that widget is on the server.
static void untilDrawn(GtkWidget* widget)
{
    isDrawn = FALSE;
    const gulong handler = g_signal_connect_after(widget, "draw", G_CALLBACK(noteDraw), nullptr);
    gtk_widget_queue_draw(widget);
    gboolean over = FALSE;
    const auto afterPaint = +[](GdkFrameClock*, gpointer flag) { *static_cast<gboolean*>(flag) = isDrawn; };
    while (!gtk_widget_get_realized(window))
        gtk_main_iteration();
    GdkFrameClock* clock = gtk_widget_get_frame_clock(window);
    const gulong painted = g_signal_connect_after(clock, "after-paint", G_CALLBACK(afterPaint), &over);
    while (!over)
        gtk_main_iteration();
    g_signal_handler_disconnect(clock, painted);
    g_signal_handler_disconnect(widget, handler);
    XSync(GDK_DISPLAY_XDISPLAY(gdk_display_get_default()), False);
}

static GtkWidget* scrolled(GtkWidget* child)
{
    GtkWidget* pane = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_container_add(GTK_CONTAINER(pane), child);
    return pane;
}

static void start()
{
    GtkWidget* column = gtk_box_new(GTK_ORIENTATION_VERTICAL, 4);
    GtkWidget* bar = gtk_menu_bar_new();
    for (int m = 0; m < menus; ++m) {
        GtkWidget *item = gtk_menu_item_new_with_label(title("Menu ", m).c_str()), *menu = gtk_menu_new();
        for (int i = 0; i < entriesPerMenu; ++i)
            gtk_menu_shell_append(GTK_MENU_SHELL(menu), gtk_menu_item_new_with_label(title("Entry ", i).c_str()));
        gtk_menu_item_set_submenu(GTK_MENU_ITEM(item), menu);
        gtk_menu_shell_append(GTK_MENU_SHELL(bar), item);
    }
    GtkWidget *text = gtk_text_view_new(), *grid = gtk_grid_new();
    gtk_text_buffer_set_text(gtk_text_view_get_buffer(GTK_TEXT_VIEW(text)), "hello, world\n", -1);
    for (int i = 0; i < buttons; ++i)
        gtk_grid_attach(GTK_GRID(grid), gtk_button_new_with_label(title("Button ", i).c_str()), i % 5, i / 5, 1, 1);
    gtk_box_pack_start(GTK_BOX(column), bar, FALSE, FALSE, 0);
    gtk_box_pack_start(GTK_BOX(column), scrolled(text), TRUE, TRUE, 0);
    gtk_box_pack_start(GTK_BOX(column), grid, FALSE, FALSE, 0);
    gtk_container_add(GTK_CONTAINER(window), column);
    gtk_widget_show_all(window);
    untilDrawn(text);
    job->done();
}

static void outline()
{
    GtkWidget* view = gtk_tree_view_new();
    GtkTreeViewColumn* column = gtk_tree_view_column_new_with_attributes("", gtk_cell_renderer_text_new(), "text", 0, nullptr);
    gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
    gtk_tree_view_append_column(GTK_TREE_VIEW(view), column);
    gtk_tree_view_set_headers_visible(GTK_TREE_VIEW(view), FALSE);
    gtk_tree_view_set_fixed_height_mode(GTK_TREE_VIEW(view), TRUE);   // as its manual advises for many rows
    gtk_container_add(GTK_CONTAINER(window), scrolled(view));
    gtk_widget_show_all(window);
    untilDrawn(view);
    job->begin();
    GtkTreeStore* store = gtk_tree_store_new(1, G_TYPE_STRING);
    for (int g = 0; g < groups; ++g) {
        GtkTreeIter group, node;
        gtk_tree_store_insert_with_values(store, &group, nullptr, -1, 0, groupName(g).c_str(), -1);
        for (int i = 0; i < childrenPerGroup; ++i)
            gtk_tree_store_insert_with_values(store, &node, &group, -1, 0, nodeName(g, i).c_str(), -1);
    }
    gtk_tree_view_set_model(GTK_TREE_VIEW(view), GTK_TREE_MODEL(store));
    gtk_tree_view_expand_all(GTK_TREE_VIEW(view));
    untilDrawn(view);
    job->done();
}

static GtkTextMark* end;
static bool ended = false;

static gboolean readSome(gint descriptor, GIOCondition, gpointer view)
{
    static char bytes[65536];
    const ssize_t count = read(descriptor, bytes, sizeof bytes);
    if (count <= 0) {
        ended = true;
        return G_SOURCE_REMOVE;
    }
    GtkTextBuffer* buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
    GtkTextIter first, last;
    gtk_text_buffer_get_end_iter(buffer, &last);
    gtk_text_buffer_insert(buffer, &last, bytes, static_cast<gint>(count));
    if (const int lines = gtk_text_buffer_get_line_count(buffer); lines > keptLines) {
        gtk_text_buffer_get_start_iter(buffer, &first);
        gtk_text_buffer_get_iter_at_line(buffer, &last, lines - keptLines);
        gtk_text_buffer_delete(buffer, &first, &last);
    }
    gtk_text_view_scroll_to_mark(GTK_TEXT_VIEW(view), end, 0, FALSE, 0, 1);
    return G_SOURCE_CONTINUE;
}

static void console()
{
    GtkWidget* view = gtk_text_view_new();
    gtk_text_view_set_monospace(GTK_TEXT_VIEW(view), TRUE);
    gtk_container_add(GTK_CONTAINER(window), scrolled(view));
    gtk_widget_show_all(window);
    untilDrawn(view);
    GtkTextIter last;
    GtkTextBuffer* buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
    gtk_text_buffer_get_end_iter(buffer, &last);
    end = gtk_text_buffer_create_mark(buffer, nullptr, &last, FALSE);
    job->begin();
    FILE* pipe = popen(writer, "r");
    g_unix_fd_add(fileno(pipe), static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), readSome, view);   // behind the drawing: slower
    GtkAdjustment* position = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view));
    const auto fromEnd = [position] {
        return gtk_adjustment_get_upper(position) - gtk_adjustment_get_page_size(position) - gtk_adjustment_get_value(position);
    };
    while (!ended || gtk_events_pending() || fromEnd() > 1)   // lines are laid out later; the last one is to be seen
        gtk_main_iteration();
    untilDrawn(view);
    job->done();
}

int main(int argc, char** argv)
{
    Job theJob(argc, argv);
    job = &theJob;
    gtk_init(&argc, &argv);
    g_object_set(gtk_settings_get_default(), "gtk-enable-animations", FALSE, nullptr);   // scrolling at once
    window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_default_size(GTK_WINDOW(window), windowWidth, windowHeight);
    if (job->is("start"))
        start();
    else if (job->is("outline"))
        outline();
    else
        console();
}
