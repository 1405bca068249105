// Loads and unloads the shared library, as a host does that looks for it at run time.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <new>

#include "dialog/ImportDialogTemplate.h"
#include "model/CVEKA_Manager.h"
#include "parser/CVEK_AsciiParser.h"
#include "window/ExtensionModule.h"

namespace {

constexpr const char* kTermSymbol = "_Z22AfxTermExtensionModuleR20AFX_EXTENSION_MODULE";

using Term = void (*)(AFX_EXTENSION_MODULE&);
using FindTemplate = const veka::DialogTemplate* (*)(unsigned);

/// What the library calls while it is unloaded.
struct Unloading {
    Term term = nullptr;
    FindTemplate findTemplate = nullptr;
    int calls = 0;
    bool foundBefore = false;
    bool foundAfter = false;
} g_unloading;

}  // namespace

/// The library's call comes here, since the program's function is found first. It is passed on.
VEKA_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module) noexcept {
    ++g_unloading.calls;
    g_unloading.foundBefore = g_unloading.findTemplate(IDD_VEK_ASCII_IMPORT) != nullptr;
    g_unloading.term(module);
    g_unloading.foundAfter = g_unloading.findTemplate(IDD_VEK_ASCII_IMPORT) != nullptr;
}

namespace {

class Library {
public:
    Library() : m_handle(dlopen(VEKA_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
        if (!m_handle) return;
        g_unloading = {Function<Term>(kTermSymbol), Function<FindTemplate>("_ZN4veka18FindDialogTemplateEj")};
    }
    ~Library() {
        if (m_handle) Close();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    bool IsOpen() const { return m_handle != nullptr; }
    template <class Pointer>
    Pointer Function(const char* symbol) const {
        return reinterpret_cast<Pointer>(dlsym(m_handle, symbol));
    }
    void Close() {
        EXPECT_EQ(dlclose(m_handle), 0) << dlerror();
        m_handle = nullptr;
    }
    static bool IsLoaded() {
        void* handle = dlopen(VEKA_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
        if (handle) dlclose(handle);
        return handle != nullptr;
    }

private:
    void* m_handle;
};

TEST(SharedLibrary, IsUnmappedWhenItIsClosed) {
    EXPECT_FALSE(Library::IsLoaded());
    for (int round = 0; round < 3; ++round) {
        Library library;
        ASSERT_TRUE(library.IsOpen()) << dlerror();
        EXPECT_TRUE(Library::IsLoaded());
        library.Close();
        EXPECT_FALSE(Library::IsLoaded());
    }
}

TEST(SharedLibrary, UnregistersItsTemplateWhenItIsUnloaded) {
    Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    ASSERT_NE(g_unloading.term, nullptr);
    ASSERT_NE(g_unloading.findTemplate, nullptr);
    EXPECT_NE(g_unloading.findTemplate(IDD_VEK_ASCII_IMPORT), nullptr);
    EXPECT_EQ(g_unloading.calls, 0);
    library.Close();
    EXPECT_EQ(g_unloading.calls, 1);
    EXPECT_TRUE(g_unloading.foundBefore);
    EXPECT_FALSE(g_unloading.foundAfter);
}

TEST(SharedLibrary, IsUnmappedAfterAnImport) {
    Library library;
    ASSERT_TRUE(library.IsOpen()) << dlerror();
    // A constructor, a method and a destructor, called as functions of their object.
    const auto construct = library.Function<void (*)(void*)>("_ZN16CVEK_AsciiParserC1Ev");
    const auto parse = library.Function<int (*)(void*)>("_ZN16CVEK_AsciiParser6ParserEv");
    const auto destroy = library.Function<void (*)(void*)>("_ZN16CVEK_AsciiParserD1Ev");
    ASSERT_TRUE(construct && parse && destroy);
    alignas(CVEK_AsciiParser) std::byte memory[sizeof(CVEK_AsciiParser)];
    construct(memory);
    auto* parser = std::launder(reinterpret_cast<CVEK_AsciiParser*>(memory));
    parser->SetVEKAsciiFilePath(VEKA_PART);
    EXPECT_EQ(parse(parser), 1);
    EXPECT_FALSE(parser->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN().IsEmpty());
    destroy(parser);
    library.Close();
    EXPECT_FALSE(Library::IsLoaded());
}

}  // namespace
