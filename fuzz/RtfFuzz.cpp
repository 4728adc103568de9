#include <cstdint>

#include "Check.h"
#include "richtext/Rtf.h"

// Whatever is read must come back the same when it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = vardel::ReadRtf({reinterpret_cast<const char*>(data), size});
    if (!text) return 0;
    const auto again = vardel::ReadRtf(vardel::WriteRtf(*text));
    Check(again && *again == *text);
    return 0;
}
