#pragma once

#include <array>

namespace headerdtc::qt {

// What an icon's line is drawn in: a colour of the palette, or one of its own.
enum class Ink { Line, Good, Attention, Bad, Accent, Paper, Brand, BrandLight };

// One path (see icons.cpp) in a square of DrawingSize; width 0 fills it.
struct Stroke {
    Ink ink = Ink::Line;
    double width = 0;
    const char* path = nullptr;
};

struct Drawing {
    const char* name;  // in the desktop's icon theme
    std::array<Stroke, 6> strokes;
};

inline constexpr double DrawingSize = 24.0;

namespace icon_words {
inline constexpr double W = 1.7;
inline constexpr const char* Page = "M 6 2.5 L 14 2.5 L 18.5 7 L 18.5 21.5 L 6 21.5 Z";
inline constexpr const char* Corner = "M 14 2.5 L 14 7 L 18.5 7";
inline constexpr const char* Folder = "M 2.5 5 L 9 5 L 11 7.5 L 21.5 7.5 L 21.5 19.5 L 2.5 19.5 Z";
inline constexpr const char* Disc = "M 3.5 3.5 L 17 3.5 L 20.5 7 L 20.5 20.5 L 3.5 20.5 Z";
inline constexpr const char* Label = "M 7 20.5 L 7 13.5 L 17 13.5 L 17 20.5";
inline constexpr const char* Shutter = "M 8 3.5 L 8 8.5 L 15 8.5 L 15 3.5";
using enum Ink;

// clang-format off
inline constexpr Drawing Drawings[] = {
    {"document-new",       {{{Line, W, Page}, {Line, W, Corner}, {Good, 2.2, "M 12.2 11 L 12.2 18 M 8.7 14.5 L 15.7 14.5"}}}},
    {"document-open",      {{{Line, W, Folder}, {Accent, 2, "M 12 17 L 12 10.5 M 9 13 L 12 10 L 15 13"}}}},
    {"document-save",      {{{Line, W, Disc}, {Line, W, Label}, {Line, W, Shutter}}}},
    {"document-save-as",   {{{Line, W, Disc}, {Line, W, Shutter}, {Accent, 2.2, "M 8 17.5 L 10.5 17 L 18.5 9.5"}}}},
    {"document-revert",    {{{Line, W, Page}, {Accent, 2, "M 9 12.5 C 10.5 10 15 10.5 15 14 C 15 17 11 18.5 9 16.5 M 8.8 9.5 L 8.8 12.7 L 12 12.7"}}}},
    {"edit-undo",          {{{Accent, 2.2, "M 9 5 L 4 10 L 9 15 M 4 10 L 14 10 C 21 10 21 19.5 14 19.5 L 10 19.5"}}}},
    {"edit-redo",          {{{Accent, 2.2, "M 15 5 L 20 10 L 15 15 M 20 10 L 10 10 C 3 10 3 19.5 10 19.5 L 14 19.5"}}}},
    {"edit-find",          {{{Line, 2, "O 10 10 6.2"}, {Line, 2.6, "M 14.8 14.8 L 20.5 20.5"}}}},
    {"list-add",           {{{Line, W, "R 3 3.5 18 17"}, {Accent, W, "M 3 8 L 21 8"}, {Good, 2.2, "M 12 11 L 12 18 M 8.5 14.5 L 15.5 14.5"}}}},
    {"list-remove",        {{{Line, W, "R 3 3.5 18 17"}, {Accent, W, "M 3 8 L 21 8"}, {Bad, 2.2, "M 8.5 14.5 L 15.5 14.5"}}}},
    {"go-up",              {{{Line, 2.2, "M 5 15 L 12 8 L 19 15"}}}},
    {"go-down",            {{{Line, 2.2, "M 5 9 L 12 16 L 19 9"}}}},
    {"view-refresh",       {{{Accent, 2.1, "M 19.5 9.5 C 17.5 4 9.5 2.5 5.5 7.5 M 4.5 14.5 C 6.5 20 14.5 21.5 18.5 16.5 M 20 4.5 L 20 9.8 L 14.8 9.8 M 4 19.5 L 4 14.2 L 9.2 14.2"}}}},
    {"system-run",         {{{Good, 0, "M 6 4 L 20 12 L 6 20 Z"}}}},
    {"media-record",       {{{Line, W, "O 12 12 9"}, {Bad, 0, "O 12 12 5.5"}}}},
    {"process-stop",       {{{Bad, 0, "M 8.5 3 L 15.5 3 L 21 8.5 L 21 15.5 L 15.5 21 L 8.5 21 L 3 15.5 L 3 8.5 Z"}, {Paper, 2.4, "M 8.5 8.5 L 15.5 15.5 M 15.5 8.5 L 8.5 15.5"}}}},
    {"preferences-system", {{{Line, W, "M 4 6.5 L 20 6.5 M 4 12 L 20 12 M 4 17.5 L 20 17.5"}, {Accent, 0, "O 9 6.5 2.6"}, {Accent, 0, "O 15.5 12 2.6"}, {Accent, 0, "O 7.5 17.5 2.6"}}}},
    {"help-contents",      {{{Line, W, "O 12 12 9.3"}, {Accent, 2.1, "M 9 9.5 C 9 5.5 15.3 5.8 15 9.6 C 14.8 11.7 12 12 12 14.3"}, {Accent, 0, "O 12 17.6 1.4"}}}},
    {"help-about",         {{{Line, W, "O 12 12 9.3"}, {Accent, 2.2, "M 12 11 L 12 17"}, {Accent, 0, "O 12 7.4 1.4"}}}},
    {"folder",             {{{Line, W, Folder}}}},
    {"folder-open",        {{{Line, W, "M 3.5 19.5 L 3.5 5 L 9 5 L 11 7.5 L 19 7.5 L 19 10.5 M 3.5 19.5 L 6.5 10.5 L 22 10.5 L 19 19.5 Z"}}}},
    {"text-html",          {{{Line, W, Page}, {Line, W, Corner}}}},
    {"dialog-information", {{{Accent, 0, "O 12 12 9.5"}, {Paper, 2.4, "M 12 11.2 L 12 17"}, {Paper, 0, "O 12 7.3 1.5"}}}},
    {"dialog-warning",     {{{Attention, 0, "M 12 2.5 L 22 20.5 L 2 20.5 Z"}, {Paper, 2.2, "M 12 9.5 L 12 14.3"}, {Paper, 0, "O 12 17.6 1.4"}}}},
    {"dialog-error",       {{{Bad, 0, "O 12 12 9.5"}, {Paper, 2.4, "M 8.5 8.5 L 15.5 15.5 M 15.5 8.5 L 8.5 15.5"}}}},
    {"dialog-ok",          {{{Good, 2.6, "M 4.5 12.5 L 10 18 L 19.5 6.5"}}}},
    {"window-close",       {{{Line, 2, "M 6 6 L 18 18 M 18 6 L 6 18"}}}},
    {"application-exit",   {{{Line, W, "M 14 4 L 4 4 L 4 20 L 14 20"}, {Accent, 2.1, "M 9 12 L 20 12 M 16 8 L 20 12 L 16 16"}}}},
    {"headerdtc-editor",   {{{Brand, 0, "R 3 1.5 18 21"}, {Paper, 0, "R 4.5 8 15 13"}, {BrandLight, 0, "R 4.5 3.5 15 3"}, {Brand, 1.3, "M 7 12 L 11 12 M 13 12 L 17 12 M 7 15 L 11 15 M 13 15 L 17 15 M 7 18 L 11 18 M 13 18 L 17 18"}}}},
};
// clang-format on
}  // namespace icon_words

using icon_words::Drawings;

}  // namespace headerdtc::qt
