// Reads the level tree of each file and imports it: what bench/instructions counts the instructions of.
//   veka_instructions FILE...

#include <cstdio>

#include "Levels.h"
#include "VEKAsciiDLL.h"

int main(int argc, char** argv) {
    std::int64_t levels = 0;
    for (int i = 1; i < argc; ++i) {
        CECadCls tree;
        tree.m_strFilePath = CString(argv[i]);
        tree.ReadLevelTree(0);
        levels += bench::CountLevels(*tree.m_pRootLevels);
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(CString(argv[i]));
        parser.Parser();
    }
    std::printf("%lld\n", static_cast<long long>(levels));
    return 0;
}
