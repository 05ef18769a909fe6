#pragma once

// The plain functions over writers of document files, for core and above. A null writer writes nothing.

#include "face/document/TBFFileInfoNode.h"
#include "face/document/TBFFileLinesNode.h"
#include "face/document/TBFFileSettingsNode.h"

namespace TBF {
class FileWriter;
}
using TBFFileWriterRef = TBF::FileWriter*;

// The caller owns the result and gives it to Free. The nodes stay the caller's and outlive the writing.
TBFFileWriterRef TBFFileWriterCreate();
void TBFFileWriterFree(TBFFileWriterRef writer);
void TBFFileWriterSetInfoNode(TBFFileWriterRef writer, TBFFileInfoNodeRef node);
void TBFFileWriterSetSettingsNode(TBFFileWriterRef writer, TBFFileSettingsNodeRef node);
void TBFFileWriterSetLinesNode(TBFFileWriterRef writer, TBFFileLinesNodeRef node);

// False if the file could not be written; an old file is then as it was. The failure is logged, and
// `TBFFileWriterGetFailureReference` has it as one sentence, borrowed, or null.
bool TBFFileWriterWriteFile(TBFFileWriterRef writer, const char* path);
const char* TBFFileWriterGetFailureReference(TBFFileWriterRef writer);

// The version of the format that is written.
double TBFFileWriterGetWriterVersion();
