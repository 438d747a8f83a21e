// Charts.h: a pie of a directory, and a meter of its file system.
#pragma once

#include "SizeOutline.h"

#include <Lm/LmMeter.h>
#include <Lm/LmPie.h>

/// What takes the room in a directory: the largest entries, with their names and the colours of their slices.
class SharePie : public LmPie {
public:
    SharePie(const char* name, Widget parent) : LmPie(name, parent) {}

    const char* className() override { return "SharePie"; }
    /// Shows that directory; null: nothing.
    void showShares(const Entry* directory, Measure measure);
    void resize() override;
    void draw() override;

private:
    void fill();
    void addLabels(const std::vector<Share>& shares, int room);
    std::string fitting(const std::string& text, int room);

    std::string _directory;
    std::vector<Share> _shares;
    int _discRadius = 1;   // pixels
};

/// How full a file system is, and how much of that a tree takes.
class RoomMeter : public LmMeter {
public:
    RoomMeter(const char* name, Widget parent) : LmMeter(name, parent) {}

    const char* className() override { return "RoomMeter"; }
    /// Shows the file system of the path. What it says, for a label; empty when the file system cannot be asked.
    std::string showRoom(const std::string& path, const Room& room, Units units);
    void resize() override;

private:
    void fill();

    int _ours = 0, _others = 0;   // thousandths of the file system
};
