#include "face/document/TBFFileWriter.h"

#include "document/FileWriter.h"

#include <memory>

TBFFileWriterRef TBFFileWriterCreate() {
    return std::make_unique<TBF::FileWriter>().release();
}

void TBFFileWriterFree(TBFFileWriterRef writer) {
    const std::unique_ptr<TBF::FileWriter> owned(writer);
}

void TBFFileWriterSetInfoNode(TBFFileWriterRef writer, TBFFileInfoNodeRef node) {
    if (writer) writer->setInfoNode(node);
}

void TBFFileWriterSetSettingsNode(TBFFileWriterRef writer, TBFFileSettingsNodeRef node) {
    if (writer) writer->setSettingsNode(node);
}

void TBFFileWriterSetLinesNode(TBFFileWriterRef writer, TBFFileLinesNodeRef node) {
    if (writer) writer->setLinesNode(node);
}

bool TBFFileWriterWriteFile(TBFFileWriterRef writer, const char* path) {
    return writer && path && writer->writeFile(path);
}

const char* TBFFileWriterGetFailureReference(TBFFileWriterRef writer) {
    return writer && !writer->failureSentence().empty() ? writer->failureSentence().c_str() : nullptr;
}

double TBFFileWriterGetWriterVersion() {
    return TBF::documentFileVersion;
}
