#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "VEKAsciiDLL.h"

namespace bench {

inline constexpr int kRows = 45;

/// The model of a ball grid: three pads, a name, a ball and a pin of the symbol for each pin.
inline const CVEKA_Manager& BallGrid() {
    static CVEK_AsciiParser parser;
    static const bool ready = [] {
        std::string text =
            "(VEK (PARTGENERAL (UNIT MM) (MPN GRID)) (PACKAGES (PACKAGE (NAME P) (BODYGEOMETRY (BODYSHAPE "
            "(CUBOID (WIDTH "
            "46) (HEIGHT 46) (THICKNESS 2)))) (PKGPINS";
        std::string footprint, symbol;
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < kRows; ++column) {
                const std::string name =
                    std::string(1, static_cast<char>('A' + row % 26)) + std::to_string(column + 1);
                const std::string place =
                    "(PT " + std::to_string(column - 22) + " " + std::to_string(row - 22) + ")";
                text += "(PKGPIN " + name + " " + place + " (LEAD (BALL (H 0.6))))";
                footprint += "(FPIN 1 " + name + " (LIBPADSTACK S) " + place + ")";
                symbol += "(PARTITIONPIN " + name + " IO TRUE " + place + ")";
            }
        text += "))) (LOGICSYMBOLS (SYMBOL (SYMBOLNAME S) (PARTITION (PARTITIONPINS " + symbol + ")))))" +
                "(PADS (PAD (PADNAME P) (FILLCIRCLE (D 0.5))))" +
                "(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P) (SOLD P) (METL P))))" +
                "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS " + footprint + ")))";
        const std::string path = "ball-grid-of-the-benchmark.veka";
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (!file) return false;
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
        parser.SetVEKAsciiFilePath(path.c_str());
        parser.Parser();
        std::remove(path.c_str());
        return true;
    }();
    if (!ready) std::abort();
    return *parser.GetCVEKA_Manager();
}

}  // namespace bench
