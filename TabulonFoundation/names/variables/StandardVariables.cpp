#include "names/variables/StandardVariables.h"

#include "names/variables/VariableList.h"
#include "units/UnitContainer.h"

namespace TBF {
namespace {

struct Row {
    const char* name;
    const char* alias;
    const char* value;
};

constexpr Row table[] = {
    {"pi", "π",
     "3."
     "141592653589793238462643383279502884197169399375105820974944592307816406286208998628034825342117067982"
     "148086513282306647093844609550582231725359408128481117450284102701938521105559644622948954930381964428"
     "810975665933446128475648233786783165271201909145648566923460348610454326648213393607260249141273724587"
     "006606315588174881520920962829254091715364367892590360011330530548820466521384146951941511609433057270"
     "365759591953092186117381932611793105118548074462379962749567351885752724891227938183011949"},
};

} // namespace

Ref<VariableList> makeStandardVariables() {
    Ref<VariableList> list = VariableList::create();
    for (const Row& row : table) {
        const Ref<Variable> variable = Variable::create();
        variable->setName(String::createWithUTF8(row.name));
        variable->addAlias(String::createWithUTF8(row.alias));
        variable->setValue(String::createWithUTF8(row.value), 0, nullptr);
        list->add(variable);
    }
    return list;
}

} // namespace TBF
