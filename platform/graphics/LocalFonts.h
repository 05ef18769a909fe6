#pragma once

// The font files of this machine, for the drawing functions beside it. Files are found by looking through the
// folders of fonts, without any configuration of the system or the user, so that a text looks alike
// wherever it is drawn. Only the files that a text needs are opened. Used by one thread at a time.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _FcConfig;
struct _PangoContext;

namespace platform {

class LocalFonts {
public:
    // The fonts of the system's folders; never destroyed.
    static LocalFonts& shared();

    // Makes the shared fonts the only ones that this process knows, so that no configuration is ever looked
    // for. To be called before anything asks for fonts: by a program of one purpose, not by a guest in
    // another program.
    static void makeSharedFontsTheOnlyOnes();

    explicit LocalFonts(const std::vector<std::string>& folders, bool areTheOnlyOnes = false);
    ~LocalFonts();
    LocalFonts(const LocalFonts&) = delete;
    LocalFonts& operator=(const LocalFonts&) = delete;

    // Whether there is nothing that letters could be drawn with.
    bool isEmpty() const { return context == nullptr; }

    // Opens further files if the text has characters that the family of the system lacks. Characters that
    // no file has show as boxes. To be called before the text is measured.
    void provideFor(std::string_view utf8Text);

    // The first family of a list as style sheets write it ("'A Font', Other, sans-serif") that is known and
    // here; the family of the system if none is.
    std::string familyOf(std::string_view list);

    // Owned by the fonts; null if they are empty.
    _PangoContext* pangoContext() const { return context; }

private:
    void findFiles(const std::string& folder);
    void chooseFamily();
    bool addFamily(const std::string_view (&names)[4]);
    void addFile(const std::string& path);
    void addRemainingFiles();
    void noteAddedFiles();
    bool coversAllOf(std::string_view utf8Text) const;

    std::vector<std::string> files; // sorted
    std::vector<std::string> added;
    std::string family; // of the system
    bool addedAll = false;
    _FcConfig* config;
    _PangoContext* context = nullptr;
};

} // namespace platform
