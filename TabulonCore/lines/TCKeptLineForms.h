#pragma once

// The lines of a document whose tokens are kept: those that used other lines when they were last evaluated,
// since they are evaluated again when the others change. A ring; the line that has been in it longest makes
// room. Used on the document's thread.

#include <cstddef>
#include <memory>
#include <vector>

class TCLine;

class TCKeptLineForms {
public:
    // Has the line keep what was made of its text. Of a long line nothing is kept: it takes a hundred times
    // the memory of the text.
    void keep(TCLine& line);

private:
    std::vector<std::weak_ptr<TCLine>> lines_;
    std::size_t oldest_ = 0;
};
