#pragma once

// The plain functions over readers of document files, for core and above. A null reader fails to read and
// has no nodes.

#include "face/document/TBFFileInfoNode.h"
#include "face/document/TBFFileLinesNode.h"
#include "face/document/TBFFileSettingsNode.h"

#include <cstdint>

namespace TBF {
class FileReader;
}
using TBFFileReaderRef = TBF::FileReader*;

// From then on, records know the line of the file on which they begin.
void TBFFileReaderInit();

// The caller owns the result and gives it to Free, which also frees the nodes. The path is copied.
TBFFileReaderRef TBFFileReaderCreate(const char* path);
void TBFFileReaderFree(TBFFileReaderRef reader);

// Once per reader. `outError` may be null; on failure it receives 1 for a file that isn't XML, 2 for one
// that is not a document, 3 for one that can't be read.
bool TBFFileReaderReadFile(TBFFileReaderRef reader, int32_t* outError);

// Owned by the reader; null for a section that the file doesn't have.
TBFFileInfoNodeRef TBFFileReaderGetInfoNode(TBFFileReaderRef reader);
TBFFileSettingsNodeRef TBFFileReaderGetSettingsNode(TBFFileReaderRef reader);
TBFFileLinesNodeRef TBFFileReaderGetLinesNode(TBFFileReaderRef reader);

// What libxml2 said, or null. Borrowed.
const char* TBFFileReaderGetErrorMessageReference(TBFFileReaderRef reader);

// One sentence that tells a user what is wrong with the file, or null. Borrowed.
const char* TBFFileReaderGetFailureReference(TBFFileReaderRef reader);

// The newest version of the format that is known.
double TBFFileReaderGetReaderVersion();
