#pragma once

// The subcommands. Each reads its input whole before it writes anything, and throws a CommandFailure when it
// can't do either. Called once, on the main thread.

struct AnswersArguments;
struct ConvertArguments;
struct ExportArguments;
struct PreviewArguments;
struct ThumbnailArguments;

// The page of a document, made by the plug-in.
void runPreview(const PreviewArguments& arguments);

// A picture of the page's first screenful, made by the plug-in within bounds of time and memory.
void runThumbnail(const ThumbnailArguments& arguments);

// A line of output for each line: the answer, the error's text, or nothing.
void runAnswers(const AnswersArguments& arguments);

void runExport(const ExportArguments& arguments);

// Text becomes a document, a document text.
void runConvert(const ConvertArguments& arguments);
