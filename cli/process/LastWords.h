#pragma once

// What the command says when it ends without an answer: one line on standard error, which is put together in
// place and so needs no memory. Any thread.

#include <initializer_list>
#include <string_view>

// "tabulon: " and the parts, as one line: control characters become question marks, and what is too long is
// cut off. Only once: what fails on the way out says nothing more.
void printLastLine(std::initializer_list<std::string_view> parts);

// The end of a process whose memory is used up where there is no way back: a library's own request for it.
[[noreturn]] void endWithoutMemory();

// From now on a process that runs out of memory where nothing can be caught says so and ends with exit code
// 1; a file that grows beyond a bound, and a reader that has seen enough, are met as errors of writing.
void prepareForTheWorst();
