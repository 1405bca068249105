#include "drawing/Palette.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace drawing {

namespace {

struct Look {
    const char* name;
    Color dark, light;  // on a dark and on a light ground
    double opacity;
};

// In the order of the roles.
constexpr Look kLooks[] = {
    {"copper", {214, 72, 60}, {196, 58, 48}, 1},
    {"solder mask", {176, 96, 204}, {150, 80, 180}, 0.45},
    {"paste", {186, 180, 172}, {128, 122, 116}, 0.35},
    {"silk", {240, 238, 190}, {120, 112, 20}, 1},
    {"assembly", {150, 158, 166}, {100, 108, 116}, 0.9},
    {"courtyard", {232, 80, 214}, {190, 40, 170}, 0.8},
    {"drill", {132, 214, 220}, {20, 96, 110}, 1},
    {"keep-out", {236, 90, 70}, {200, 50, 40}, 0.3},
    {"body", {92, 98, 106}, {96, 102, 110}, 1},
    {"lead", {200, 204, 208}, {168, 172, 178}, 1},
    {"pin", {226, 104, 92}, {168, 24, 24}, 1},
    {"pin name", {120, 214, 214}, {0, 106, 116}, 1},
    {"pin number", {226, 150, 92}, {160, 60, 20}, 1},
    {"label", {176, 190, 206}, {60, 72, 88}, 1},
    {"marking", {236, 236, 236}, {236, 236, 236}, 0.9},
    {"dimension", {124, 190, 250}, {24, 92, 168}, 1},
    {"missing", {255, 190, 40}, {208, 120, 0}, 1},
    {"other", {150, 178, 214}, {70, 104, 148}, 0.9},
};

const Look& LookOf(Role role) {
    const auto index = static_cast<std::size_t>(role);
    return kLooks[index < std::size(kLooks) ? index : std::size(kLooks) - 1];
}

/// The brightness that an eye sees, from 0 to 255.
double Brightness(Color color) {
    return 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
}

Color Mixed(Color a, Color b, double share) {
    const auto mix = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
    };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

}  // namespace

std::string HtmlColor(Color color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(color.red),
                  static_cast<unsigned>(color.green), static_cast<unsigned>(color.blue));
    return text;
}

const char* NameOf(Role role) {
    return LookOf(role).name;
}

const char* NameOf(Side side) {
    constexpr const char* kNames[] = {"top", "bottom", "inner", "both"};
    return kNames[static_cast<std::size_t>(side) < std::size(kNames) ? static_cast<std::size_t>(side) : 3];
}

Color Ground(Theme theme) {
    return theme == Theme::Dark ? Color{22, 25, 29} : Color{255, 255, 255};
}

Color Ink(Theme theme) {
    return theme == Theme::Dark ? Color{214, 220, 228} : Color{40, 46, 54};
}

Color ColorOf(Role role, Side side, Theme theme) {
    const Look& look = LookOf(role);
    if (role == Role::Copper && side == Side::Bottom)
        return theme == Theme::Dark ? Color{77, 127, 196} : Color{48, 98, 168};
    if (role == Role::Copper && side == Side::Inner)
        return theme == Theme::Dark ? Color{198, 160, 72} : Color{150, 112, 24};
    return theme == Theme::Dark ? look.dark : look.light;
}

Color Readable(Color color, Theme theme) {
    const double brightness = Brightness(color);
    if (theme == Theme::Dark && brightness < 80)
        return Mixed(color, {255, 255, 255}, (80 - brightness) / (255 - brightness));
    if (theme == Theme::Light && brightness > 150) return Mixed(color, {}, (brightness - 150) / brightness);
    return color;
}

bool IsHollow(Role role) {
    return role == Role::Drill;
}

double OpacityOf(Role role) {
    return LookOf(role).opacity;
}

}  // namespace drawing
