#include <algorithm>
#include <cstdint>
#include <string>

#include "Check.h"
#include "services/settings/IniText.h"

// The first line is a value, the rest the file. What is set comes back, all else stays, and what is
// there already changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string value = input.substr(0, end);
    const std::string file = input.substr(std::min(end + 1, input.size()));
    vardel::IniText ini(file);
    const auto other = ini.Value("A b", "Other");
    if (!ini.SetValue("A b", "Key", value)) {
        Check(ini.Text() == file);
        return 0;
    }
    Check(ini.Value("A b", "Key") == value);
    Check(ini.Value("A b", "Other") == other);
    const std::string set = ini.Text();
    Check(ini.SetValue("A b", "Key", value) && ini.Text() == set);
    ini.Remove("A b", "Key");
    Check(ini.Text().size() < set.size());
    return 0;
}
