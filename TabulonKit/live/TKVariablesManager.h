#pragma once

// The variables that all documents share: the user's own, in the user's order, in the list that the evaluator
// reads. Others may put variables straight into the list; those aren't known here and aren't saved. Set up on
// one thread, then used on the main thread.

#include "environment/TCSimpleLocale.h"
#include "propertylist/PropertyList.h"
#include "variables/TCVariableList.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class TCUnitCollection;
class TCVariable;
struct TCVariableNameError;

// Names of notifications. The object is the variable; for the last one the manager.
inline constexpr std::string_view TKVariableWasAdded = "TKVariableWasAdded";
inline constexpr std::string_view TKVariableWasRemoved = "TKVariableWasRemoved";
inline constexpr std::string_view TKVariableWasMoved = "TKVariableWasMoved";
inline constexpr std::string_view TKVariableWasModified = "TKVariableWasModified";
inline constexpr std::string_view TKVariablesLocaleChanged = "TKVariablesLocaleChanged";

// What a variable is to the kit, as its `type`.
enum TKVariableType : int32_t {
    TKVariableTypeUser = 0,
    TKVariableTypeStock = 1,
};

class TKVariablesManager final : public std::enable_shared_from_this<TKVariablesManager>,
                                 TCVariableListDelegate {
    struct Passkey {};

public:
    using Variable = std::shared_ptr<TCVariable>;

    // Becomes the delegate of the list; null stands for a new one.
    static std::shared_ptr<TKVariablesManager>
    managerWithVariableList(std::shared_ptr<TCVariableList> variableList,
                            std::shared_ptr<TCUnitCollection> unitCollection);
    TKVariablesManager(Passkey, std::shared_ptr<TCVariableList> variableList,
                       std::shared_ptr<TCUnitCollection> unitCollection);
    ~TKVariablesManager() override;

    const std::shared_ptr<TCVariableList>& variableList() const { return list; }

    // The user's, in order.
    std::vector<Variable> variables() const { return variablesArray; }

    // The user's variable of exactly this name; null for none.
    Variable variableNamed(std::u16string_view name) const;

    // k, M and G, where there is no variable of that name yet. Nobody is notified.
    void loadDefaults();

    // A name that the list has already, in whatever case, is logged, and the variable isn't taken.
    void addVariable(const Variable& variable);

    // With the value 1.
    void addVariableNamed(std::u16string_view name);

    // A new variable that isn't added, for the user to fill in, under a name that is free.
    Variable standardVariable() const;

    // An index past the end means the end. Nothing for a variable that isn't the user's.
    void moveVariable(const Variable& variable, std::size_t toIndex);
    void deleteVariable(const Variable& variable);

    // False with an error, which may be null, if the name can't be used.
    bool renameVariable(const Variable& variable, std::u16string_view toName, TCVariableNameError* error);

    // What the text comes to becomes the value. False with an error, which may be null, for a null variable.
    bool setValueOfVariable(const Variable& variable, std::optional<std::u16string> toValue,
                            TCVariableNameError* error = nullptr);

    // Values are rewritten for it.
    void setLocale(TCSimpleLocale locale);

    // The old file stays if it fails, which is reported.
    bool saveToPath(const std::string& path, const platform::PropertyList& withVersionInfo) const;

    // True if the file was read. What can't be used in it is reported and passed over. `isDamaged`, where
    // given, tells a file that holds no saved variables from one that couldn't be read.
    bool loadFromPath(const std::string& path, bool* isDamaged = nullptr);

    // Null without a name.
    Variable variableFromDictionaryRepresentation(const platform::PropertyList& dictionary) const;

private:
    void variableDidUpdateInVariableList(TCVariable& variable, TCVariableList& list) override;

    Variable freeVariable(std::u16string_view value) const;

    std::shared_ptr<TCVariableList> list;
    std::vector<Variable> variablesArray;
    TCSimpleLocale variableLocale = TCSimpleLocale::standardLocale();
    bool postsNotifications = true;
    std::shared_ptr<TCUnitCollection> unitCollection;
};
