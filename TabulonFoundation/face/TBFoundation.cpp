#include "face/TBFoundation.h"

#include "face/analysis/TBFExpressionScanner.h"
#include "face/analysis/syntaxtree/TBFSyntaxTree.h"
#include "face/eval/wordoperators/TBFWordOperatorCompiler.h"
#include "face/names/wordoperators/TBFWordOperatorList.h"
#include "face/names/functions/TBFFunction.h"
#include "face/names/variables/TBFVariableList.h"
#include "numbers/TBFMAPMExtensions.h"
#include "face/numbers/TBFNumber.h"
#include "parser/UnitDisambiguator.h"
#include "units/UnitTypeFactorings.h"

#include "m_apm.h"

#include <mutex>

namespace {

// Makes the kernel's tables and constants exist before threads ask for them.
void startKernel() {
    m_apm_init_semaphore();
    const M_APM first = m_apm_init();
    m_apm_set_long(first, 1);
    m_apm_free(first);
}

void start(TBFSettingsRef settings) {
    startKernel();
    TBFSettingsSet(settings);
    TBFMAPMExtensionsInit();
    TBFNumber_ConstantsInit();
    TBFUnitDisambiguatorInit();
    TBF_UnitTypeFactorings_initialize();
    TBFStandardVariablesInit();
    TBFStandardFunctionsInit();
    TBFWordOperatorCompilerInit(TBFStandardFunctionsGetSharedListReference());
    TBFStandardWordOperatorsInit();
    TBFStandardSyntaxTreesInit();
    TBFExpressionScannerInit();
}

} // namespace

void TBFoundationInit(TBFSettingsRef settings) {
    static std::once_flag started;
    std::call_once(started, start, settings);
}
