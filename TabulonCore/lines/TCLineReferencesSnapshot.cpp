#include "lines/TCLineReferencesSnapshot.h"

#include <utility>

void TCLineReferencesSnapshot::addTarget(std::shared_ptr<TCLine> line, std::size_t lineIndex,
                                         std::u16string lineReference) {
    targets.insert_or_assign(std::move(lineReference), Target{std::move(line), lineIndex});
}

const TCLineReferencesSnapshot::Target*
TCLineReferencesSnapshot::targetForLineReference(const std::u16string& lineReference) const {
    const auto found = targets.find(lineReference);
    return found == targets.end() ? nullptr : &found->second;
}
