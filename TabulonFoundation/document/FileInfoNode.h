#pragma once

// The general section of a document file: the version of the format, and whether the file is a test of
// evaluation, whose lines carry the answers expected of them. A plain record, owned by the reader that made
// it or by the caller of the writer.

namespace TBF {

// The version of the format that this system writes, and up to which it reads without a remark.
inline constexpr double documentFileVersion = 0.6;

struct FileInfoNode {
    double version = documentFileVersion;
    bool isEvaluationTest = false;
};

} // namespace TBF
