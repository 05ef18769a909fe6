#include "eval/Foundation.h"

#include "analysis/ExpressionScanner.h"
#include "analysis/syntaxtree/StandardSyntaxTrees.h"
#include "eval/wordoperators/WordOperatorCompiler.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "parser/UnitDisambiguator.h"
#include "units/UnitTypeFactorings.h"

#include "m_apm.h"

#include <mutex>
#include <utility>

namespace TBF {
namespace {

// Makes the kernel's tables and constants exist before threads ask for them.
void startKernel() {
    m_apm_init_semaphore();
    const M_APM first = m_apm_init();
    m_apm_set_long(first, 1);
    m_apm_free(first);
}

void start(Ref<Settings> settings) {
    startKernel();
    Settings::setCurrent(std::move(settings));
    TBFMAPMExtensionsInit();
    Number::makeConstants();
    TBFUnitDisambiguatorInit();
    TBF_UnitTypeFactorings_initialize();
    VariableList::startStandard();
    WordOperatorCompiler::sharedOver(FunctionList::standard());
    WordOperatorList::shared();
    StandardSyntaxTrees::specialOperators();
    StandardSyntaxTrees::unaryOperators();
    defaultWordBreakers();
}

} // namespace

void startFoundation(Ref<Settings> settings) {
    static std::once_flag started;
    std::call_once(started, start, std::move(settings));
}

} // namespace TBF
