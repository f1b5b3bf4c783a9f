#include "support/interfaces.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/paths.h"

namespace tessara::testing {
namespace {

// The text between braces and semicolons: without comments and labels, with single blanks.
std::vector<std::string> StatementsOf(const std::filesystem::path& header) {
    std::ifstream file(header);
    std::string code;
    for (std::string line; std::getline(file, line);) {
        line = line.substr(0, line.find("//"));
        if (line.empty() || line[0] == '#' || line.find("public:") != std::string::npos ||
            line.find("protected:") != std::string::npos)
            continue;
        code += line + '\n';
    }
    std::vector<std::string> statements;
    for (std::size_t start = 0; start < code.size();) {
        const std::size_t end = std::min(code.find_first_of("{};", start), code.size());
        std::istringstream words(code.substr(start, end - start));
        std::string statement;
        for (std::string word; words >> word;)
            statement += (statement.empty() ? "" : " ") + word;
        statements.push_back(statement);
        start = end + 1;
    }
    return statements;
}

// "IArray" for "class IArray : public IUnknown"; empty for a class that is not an interface.
std::string InterfaceOf(const std::string& statement) {
    std::istringstream words(statement.substr(statement.find(' ') + 1));
    std::string name;
    words >> name;
    const bool isInterface = name.size() > 1 && name[0] == 'I' && name[1] >= 'A' && name[1] <= 'Z';
    return isInterface ? name : "";
}

// The types of "(IUnknown* object, double x)": the name of an argument means nothing to a caller.
std::string WithoutArgumentNames(const std::string& list) {
    std::string types;
    std::istringstream arguments(list);
    for (std::string argument; std::getline(arguments, argument, ',');) {
        const std::size_t start = argument.find_first_not_of(' ');
        types += (types.empty() ? "" : ", ") + argument.substr(start, argument.rfind(' ') - start);
    }
    return types;
}

// Of "virtual bool GetPixel(double* x, double* y) = 0".
DeclaredOperation OperationOf(const std::string& interface, const std::string& statement) {
    const std::size_t open = statement.find('(');
    const std::size_t close = statement.find(')');
    const std::size_t start = statement.rfind(' ', open) + 1;
    const std::size_t result = std::string("virtual ").size();
    const std::string name = statement.substr(start, open - start);
    const std::string arguments = WithoutArgumentNames(statement.substr(open + 1, close - open - 1));
    return {interface, name,
            statement.substr(result, start - result) + interface + "::" + name + '(' + arguments + ')'};
}

}  // namespace

std::vector<DeclaredOperation> DeclaredOperations() {
    std::vector<std::filesystem::path> headers;
    for (const char* directory : {"/include/tessara", "/include/tessara/internal"}) {
        for (const auto& entry : std::filesystem::directory_iterator(SourceDir() + directory)) {
            if (entry.path().extension() == ".h") headers.push_back(entry.path());
        }
    }
    std::sort(headers.begin(), headers.end(),
              [](const auto& left, const auto& right) { return left.filename() < right.filename(); });
    std::vector<DeclaredOperation> operations;
    for (const std::filesystem::path& header : headers) {
        std::string interface;
        for (const std::string& statement : StatementsOf(header)) {
            if (statement.starts_with("class ")) interface = InterfaceOf(statement);
            if (!interface.empty() && statement.starts_with("virtual "))
                operations.push_back(OperationOf(interface, statement));
        }
    }
    return operations;
}

}  // namespace tessara::testing
