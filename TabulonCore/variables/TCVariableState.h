#pragma once

// What a variable was before its last change. Belongs to the variable; document's thread.

#include <optional>
#include <string>

class TCVariable;

class TCVariableState {
public:
    void updateWithVariable(const TCVariable& variable);
    void clear() { oldName.reset(); }
    const std::optional<std::u16string>& name() const { return oldName; }

private:
    std::optional<std::u16string> oldName;
};
