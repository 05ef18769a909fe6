#include "face/document/TBFFileReader.h"

#include "document/FileReader.h"

#include <memory>

namespace {

const char* textOrNull(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

} // namespace

void TBFFileReaderInit() {
    TBF::FileReader::enableLineNumbers();
}

TBFFileReaderRef TBFFileReaderCreate(const char* path) {
    return std::make_unique<TBF::FileReader>(path ? path : "").release();
}

void TBFFileReaderFree(TBFFileReaderRef reader) {
    const std::unique_ptr<TBF::FileReader> owned(reader);
}

bool TBFFileReaderReadFile(TBFFileReaderRef reader, int32_t* outError) {
    if (!reader) return false;
    const bool success = reader->readFile();
    if (!success && outError) *outError = reader->error();
    return success;
}

TBFFileInfoNodeRef TBFFileReaderGetInfoNode(TBFFileReaderRef reader) {
    return reader ? reader->info() : nullptr;
}

TBFFileSettingsNodeRef TBFFileReaderGetSettingsNode(TBFFileReaderRef reader) {
    return reader ? reader->settings() : nullptr;
}

TBFFileLinesNodeRef TBFFileReaderGetLinesNode(TBFFileReaderRef reader) {
    return reader ? reader->lines() : nullptr;
}

const char* TBFFileReaderGetErrorMessageReference(TBFFileReaderRef reader) {
    return reader ? textOrNull(reader->errorMessage()) : nullptr;
}

const char* TBFFileReaderGetFailureReference(TBFFileReaderRef reader) {
    return reader ? textOrNull(reader->failureSentence()) : nullptr;
}

double TBFFileReaderGetReaderVersion() {
    return TBF::documentFileVersion;
}
