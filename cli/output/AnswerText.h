#pragma once

// Lines as they read on a terminal: UTF-8 without markup. On the document's thread.

#include <optional>
#include <string>

class TCLine;

// At most one of the two; neither for a line without an answer.
struct AnswerText {
    std::optional<std::string> answer; // as the line's formatting shows it
    std::optional<std::string> error;
};

AnswerText answerTextOf(TCLine& line);

// What the line says; empty for a line without a text.
std::string expressionTextOf(const TCLine& line);
