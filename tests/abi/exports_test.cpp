// The dynamic symbols of the shared library are a contract: it exports the listed symbols and no others.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/exports.h"
#include "support/interfaces.h"
#include "support/sanitized.h"

namespace tessara {
namespace {

using testing::ListedExports;

// The lines that a command of the binary utilities writes about the library.
std::istringstream Ask(const std::string& command) {
    FILE* const pipe = popen((command + " '" TESSARA_LIBRARY "'").c_str(), "r");
    std::string output;
    if (pipe != nullptr) {
        std::array<char, 4096> block;
        while (const std::size_t size = std::fread(block.data(), 1, block.size(), pipe))
            output.append(block.data(), size);
        EXPECT_EQ(pclose(pipe), 0) << command;
    }
    EXPECT_FALSE(output.empty()) << command;
    return std::istringstream(output);
}

// The lines of a kind that readelf gives for the library's dynamic section.
std::vector<std::string> DynamicEntries(const std::string& kind) {
    std::istringstream lines = Ask("readelf -d -W");
    std::vector<std::string> values;
    for (std::string line; std::getline(lines, line);) {
        // 0x0000000000000001 (NEEDED)  Shared library: [libm.so.6]
        if (line.find('(' + kind + ')') == std::string::npos) continue;
        const std::size_t start = line.find('[') + 1;
        values.push_back(line.substr(start, line.find(']') - start));
    }
    return values;
}

struct Export {
    char type;  // as nm writes it: T is a function
    std::string name;
};

std::vector<Export> ActualSymbols(const std::string& options) {
    std::istringstream lines = Ask("nm -D --defined-only " + options);
    std::vector<Export> symbols;
    for (std::string line; std::getline(lines, line);) {
        // Address, type, and the name, which may have spaces in it.
        std::istringstream words(line);
        std::string address;
        Export symbol;
        words >> address >> symbol.type >> std::ws;
        std::getline(words, symbol.name);
        symbols.push_back(symbol);
    }
    return symbols;
}

std::set<std::string> ActualExports() {
    std::set<std::string> names;
    for (const Export& symbol : ActualSymbols("-C"))
        names.insert(symbol.name);
    return names;
}

std::string Difference(const std::set<std::string>& left, const std::set<std::string>& right) {
    std::string names;
    for (const std::string& name : left) {
        if (right.count(name) == 0) names += name + '\n';
    }
    return names;
}

TEST(Exports, NoneIsMissing) {
    EXPECT_EQ(Difference(ListedExports(), ActualExports()), "");
}

TEST(Exports, NoneIsAdded) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers export symbols of their own";
    EXPECT_EQ(Difference(ActualExports(), ListedExports()), "");
}

TEST(Exports, TheLibraryNeedsTheStandardLibraryOnly) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers bring libraries of their own";
    const std::set<std::string> standard{"libstdc++", "libc++", "libc++abi",       "libgcc_s",
                                         "libm",      "libc",   "ld-linux-x86-64", "ld-linux-aarch64"};
    const std::vector<std::string> needed = DynamicEntries("NEEDED");
    EXPECT_FALSE(needed.empty());
    for (const std::string& library : needed)
        EXPECT_EQ(standard.count(library.substr(0, library.find(".so"))), 1u) << library;
}

// Its functions differ in their last digits from system to system, and from processor to processor. The few
// that are exact everywhere are instructions, but to a compiler that doesn't optimise.
TEST(Exports, NothingComesFromTheMathematicsLibrary) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers know its functions";
    void* const mathematics = dlopen("libm.so.6", RTLD_NOW);
    if (mathematics == nullptr) GTEST_SKIP() << "this system has it under another name";
    std::istringstream lines = Ask("nm -D --undefined-only");
    const std::set<std::string> exact{"sqrt", "fabs", "copysign"};
    int names = 0;
    for (std::string type, name; lines >> type >> name;) {
        name = name.substr(0, name.find('@'));
        Dl_info home{};
        void* const symbol = dlsym(mathematics, name.c_str());
        const bool isFound = symbol != nullptr && dladdr(symbol, &home) != 0;
        const bool isOfLibm = isFound && std::string(home.dli_fname).find("libm.so") != std::string::npos;
        EXPECT_TRUE(!isOfLibm || exact.count(name) == 1) << name;
        ++names;
    }
    EXPECT_GT(names, 10);
    void* const sine = dlsym(mathematics, "sin");
    Dl_info home{};
    EXPECT_NE(dladdr(sine, &home), 0);
    EXPECT_NE(std::string(home.dli_fname).find("libm.so"), std::string::npos) << "it couldn't be found out";
    dlclose(mathematics);
}

// Nothing but functions: a variable that a program has copied into itself can't grow.
TEST(Exports, AreAllFunctions) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers export symbols of their own";
    for (const Export& symbol : ActualSymbols("-C"))
        EXPECT_EQ(symbol.type, 'T') << symbol.name;
}

// The names that programs are bound to, one for each symbol: a constructor has two.
TEST(Exports, HaveTheStoredNamesInTheBinaryInterface) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers export symbols of their own";
    std::set<std::string> actual;
    for (const Export& symbol : ActualSymbols(""))
        actual.insert(symbol.name);
    const std::set<std::string> stored = testing::ListedSymbols();
    EXPECT_EQ(Difference(stored, actual), "") << "missing";
    EXPECT_EQ(Difference(actual, stored), "") << "added";
}

// A program calls an operation by its index in the table, with the arguments and the result of its
// declaration.
TEST(Exports, InterfacesHaveTheStoredOperations) {
    const std::vector<std::string> stored = testing::LinesListedIn("interfaces.txt");
    const std::vector<testing::DeclaredOperation> declared = testing::DeclaredOperations();
    for (std::size_t i = 0; i < std::min(stored.size(), declared.size()); ++i)
        ASSERT_EQ(declared[i].declaration, stored[i]) << "line " << i + 1 << " of those without remarks";
    EXPECT_EQ(declared.size(), stored.size());
}

// "IArray" and "Add" of a line such as "void IArray::Add(IUnknown*)".
std::pair<std::string, std::string> InterfaceAndName(const std::string& declaration) {
    const std::size_t colons = declaration.find("::", declaration.rfind(' ', declaration.find('(')) + 1);
    const std::size_t interfaceStart = declaration.rfind(' ', colons) + 1;
    const std::size_t nameStart = colons + 2;
    return {declaration.substr(interfaceStart, colons - interfaceStart),
            declaration.substr(nameStart, declaration.find('(') - nameStart)};
}

// Compilers for Windows order operations of one name in reverse. Their destructor has one entry in the table
// where others have two, so an interface with a destructor is not for hosts of those compilers;
// docs/objects.md lists them.
TEST(Exports, OperationsHaveNamesOfTheirOwnAndADestructorIsTheFirst) {
    std::set<std::pair<std::string, std::string>> names;
    std::set<std::string> interfaces, withDestructor;
    for (const std::string& line : testing::LinesListedIn("interfaces.txt")) {
        const auto [interface, name] = InterfaceAndName(line);
        EXPECT_TRUE(names.insert({interface, name}).second) << line;
        const bool isFirst = interfaces.insert(interface).second;
        if (name[0] != '~') continue;
        EXPECT_TRUE(isFirst) << line;
        withDestructor.insert(interface);
    }
    const std::set<std::string> documented{"ICircleOnTangentPlane",
                                           "IEllipseOnTangentPlane",
                                           "IEllipsoidOfRevolution",
                                           "IIntersectionResults",
                                           "ILineIntersectionParameters",
                                           "IMapCoordCreator",
                                           "IMapCoordCreatorFactory",
                                           "ITangentPlane",
                                           "ITessaraComponent",
                                           "ITessaraComponentInit",
                                           "ITessaraString",
                                           "IVector"};
    EXPECT_EQ(withDestructor, documented);
}

// Programs find the library by this name as long as the contract holds.
TEST(Exports, TheLibraryGoesByTheNameOfItsContract) {
    EXPECT_EQ(DynamicEntries("SONAME"), std::vector<std::string>{"libtessara.so.1"});
}

}  // namespace
}  // namespace tessara
