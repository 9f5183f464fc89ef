// The description markup of a card, without a window: a description is read
// line by line, each line classified as the body draws it. Platform-free.
//
// Lines end at line feeds; the piece after the last line feed is not a line,
// so a description shows only text that a line feed ends (deliberate). Each
// line, in this order of tests: an empty line becomes one blank; the first
// "<W>" is deleted and marks the line wrapped; a line with a tab is a tabbed
// line whatever else it holds; a wrapped line is word-wrapped; a line with
// "<L>" is a rule; anything else is a plain line. Every "&" is doubled, so
// that text drawing shows it and never takes it for a mnemonic prefix.
//
// The reader classifies one line at a time: a painter stops reading at the
// bottom of the body, so a huge description costs only the lines that fit.
#pragma once

#include "HyUIExport.h"

#include <cstddef>
#include <string>
#include <string_view>

enum class HyCardLineKind
{
    Plain,     // one line, clipped where it does not fit
    Tabbed,    // one line, tabs expanded
    Wrapped,   // word-wrapped over as many lines as it needs
    Rule,      // no text: a one-pixel line across the body
};

struct HyCardLine
{
    HyCardLineKind kind = HyCardLineKind::Plain;
    std::string text;   // "&" doubled, "<W>" deleted; empty for a rule
};

class HYUI_API HyCardDescriptionReader
{
public:
    explicit HyCardDescriptionReader(std::string_view description) : m_rest(description) {}

    // The next line, or false when no line feed is left.
    bool Next(HyCardLine& line);

private:
    std::string_view m_rest;
};
