#include "graphics/LocalFonts.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>
#include <system_error>

#if defined(__SANITIZE_ADDRESS__)
// Fontconfig keeps distances in place of addresses, by which a search for leaks finds nothing.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0"; // a line about them would stand among the program's own
}
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
#endif

namespace platform {

namespace {

constexpr const char* systemFolders[] = {"/usr/share/fonts", "/usr/local/share/fonts"};

// More than any machine should have; what lies beyond is not looked at.
constexpr std::size_t maxFiles = 4096;
constexpr std::size_t maxOpenedFiles = 400;

// A family for pages, by the names of its files in lower case: regular, bold, slanted, bold and slanted.
struct FamilyRow {
    std::string_view name;
    std::string_view files[4];
};

// The first that is here is the system's.
constexpr FamilyRow families[] = {
    {"DejaVu Sans",
     {"dejavusans.ttf", "dejavusans-bold.ttf", "dejavusans-oblique.ttf", "dejavusans-boldoblique.ttf"}},
    {"Verdana", {"verdana.ttf", "verdana_bold.ttf", "verdana_italic.ttf", "verdana_bold_italic.ttf"}},
    {"Noto Sans",
     {"notosans-regular.ttf", "notosans-bold.ttf", "notosans-italic.ttf", "notosans-bolditalic.ttf"}},
    {"Liberation Sans",
     {"liberationsans-regular.ttf", "liberationsans-bold.ttf", "liberationsans-italic.ttf",
      "liberationsans-bolditalic.ttf"}},
    {"Open Sans",
     {"opensans-regular.ttf", "opensans-bold.ttf", "opensans-italic.ttf", "opensans-bolditalic.ttf"}},
    {"FreeSans", {"freesans.ttf", "freesansbold.ttf", "freesansoblique.ttf", "freesansboldoblique.ttf"}},
};

bool sharedFontsAreTheOnlyOnes = false;

std::string lowerCased(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

std::string nameOf(const std::string& path) {
    return lowerCased(std::filesystem::path(path).filename().string());
}

bool isFontFile(const std::string& path) {
    const std::string type = lowerCased(std::filesystem::path(path).extension().string());
    return type == ".ttf" || type == ".otf" || type == ".ttc";
}

// The next character of a UTF-8 text, which is taken off it. Bytes that make no sense count as U+FFFD.
uint32_t takeCharacter(std::string_view& text) {
    const gunichar character =
        g_utf8_get_char_validated(text.data(), static_cast<gssize>(std::min<std::size_t>(text.size(), 4)));
    const bool isValid = character < 0x110000;
    text.remove_prefix(isValid ? static_cast<std::size_t>(g_unichar_to_utf8(character, nullptr)) : 1);
    return isValid ? character : 0xFFFD;
}

std::string unquoted(std::string_view name) {
    constexpr std::string_view wrapping = " \t\n\"'";
    const std::size_t first = name.find_first_not_of(wrapping);
    if (first == std::string_view::npos) return {};
    return std::string(name.substr(first, name.find_last_not_of(wrapping) - first + 1));
}

// Signs that have no shape of their own.
bool isShapeless(uint32_t character) {
    return character < 0xA0 || g_unichar_iszerowidth(character) || !g_unichar_isgraph(character);
}

_PangoContext* makeContext(FcConfig* config) {
    PangoFontMap* const map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    if (!map) return nullptr;
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), config);
    PangoContext* const context = pango_font_map_create_context(map);
    g_object_unref(map); // the context holds it
    // Shapes that don't depend on the grid of pixels: a text measured at one scale fits at any other.
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_cairo_context_set_resolution(context, 96);
    pango_context_set_round_glyph_positions(context, FALSE);
    // Not that of the user, on which shapes might depend.
    pango_context_set_language(context, pango_language_from_string("en"));
    return context;
}

} // namespace

LocalFonts& LocalFonts::shared() {
    static auto& fonts =
        *new LocalFonts({std::begin(systemFolders), std::end(systemFolders)}, sharedFontsAreTheOnlyOnes);
    return fonts;
}

void LocalFonts::makeSharedFontsTheOnlyOnes() {
    sharedFontsAreTheOnlyOnes = true;
}

LocalFonts::LocalFonts(const std::vector<std::string>& folders, bool areTheOnlyOnes)
    : config(FcConfigCreate()) {
    for (const std::string& folder : folders)
        findFiles(folder);
    std::sort(files.begin(), files.end());
    // Ahead of the first map of fonts, which would otherwise load the configuration of the system.
    if (areTheOnlyOnes) FcConfigSetCurrent(config);
    chooseFamily();
    if (!added.empty()) context = makeContext(config);
}

LocalFonts::~LocalFonts() {
    if (context) g_object_unref(context);
    FcConfigDestroy(config);
}

void LocalFonts::findFiles(const std::string& folder) {
    namespace fs = std::filesystem;
    std::error_code error;
    fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && each != fs::recursive_directory_iterator(); each.increment(error)) {
        if (files.size() >= maxFiles) return;
        std::error_code ignored;
        std::string path = each->path().string();
        if (isFontFile(path) && each->is_regular_file(ignored)) files.push_back(std::move(path));
    }
}

// False if no file of the family is here.
bool LocalFonts::addFamily(const std::string_view (&names)[4]) {
    const std::size_t before = added.size();
    for (const std::string_view name : names) {
        const auto file = std::find_if(files.begin(), files.end(),
                                       [&](const std::string& path) { return nameOf(path) == name; });
        if (file != files.end()) addFile(*file);
    }
    return added.size() > before;
}

void LocalFonts::chooseFamily() {
    for (const FamilyRow& row : families) {
        if (!addFamily(row.files)) continue;
        family = row.name;
        return;
    }
    addRemainingFiles(); // whatever there is
    const FcFontSet* const fonts = FcConfigGetFonts(config, FcSetApplication);
    FcChar8* name = nullptr;
    if (fonts && fonts->nfont > 0 &&
        FcPatternGetString(fonts->fonts[0], FC_FAMILY, 0, &name) == FcResultMatch) {
        family = reinterpret_cast<const char*>(name);
    }
}

void LocalFonts::addFile(const std::string& path) {
    if (added.size() >= maxOpenedFiles || std::find(added.begin(), added.end(), path) != added.end()) return;
    if (FcConfigAppFontAddFile(config, reinterpret_cast<const FcChar8*>(path.c_str()))) added.push_back(path);
}

void LocalFonts::addRemainingFiles() {
    if (addedAll) return;
    addedAll = true;
    for (const std::string& path : files)
        addFile(path);
    noteAddedFiles();
}

// What was shaped so far may look otherwise now.
void LocalFonts::noteAddedFiles() {
    if (!context) return;
    pango_fc_font_map_config_changed(PANGO_FC_FONT_MAP(pango_context_get_font_map(context)));
    pango_context_changed(context);
}

bool LocalFonts::coversAllOf(std::string_view text) const {
    const FcFontSet* const fonts = FcConfigGetFonts(config, FcSetApplication);
    FcCharSet* characters = nullptr;
    if (!fonts || fonts->nfont == 0 ||
        FcPatternGetCharSet(fonts->fonts[0], FC_CHARSET, 0, &characters) != FcResultMatch) {
        return true; // there is nothing to compare with
    }
    while (!text.empty()) {
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            text.remove_prefix(1);
            continue;
        }
        const uint32_t character = takeCharacter(text);
        if (!isShapeless(character) && !FcCharSetHasChar(characters, character)) return false;
    }
    return true;
}

void LocalFonts::provideFor(std::string_view utf8Text) {
    if (!isEmpty() && !addedAll && !coversAllOf(utf8Text)) addRemainingFiles();
}

std::string LocalFonts::familyOf(std::string_view list) {
    while (!list.empty()) {
        const std::size_t comma = list.find(',');
        const std::string name = lowerCased(unquoted(list.substr(0, comma)));
        list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
        for (const FamilyRow& row : families) {
            if (lowerCased(std::string(row.name)) != name) continue;
            if (row.name == family) return family;
            if (addFamily(row.files)) {
                noteAddedFiles();
                return std::string(row.name);
            }
        }
    }
    return family;
}

} // namespace platform
