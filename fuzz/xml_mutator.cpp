// How inputs that begin with an XML text change: mostly so that the text stays well formed, which
// bytes that change at random rarely leave it. What follows a zero byte is no XML and changes as
// bytes do.

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t longest);

namespace {

constexpr std::size_t longest_value = 200;

/// From the first byte to behind the last.
struct Span {
    std::size_t start, end;

    std::string in(const std::string& text) const { return text.substr(start, end - start); }
};
using Spans = std::vector<Span>;

/// Values that are wrong in most places, or right where they are least expected.
const char* const odd_values[] = {
    "",
    "0",
    "1",
    "-1",
    "0.5",
    "7",
    "1000",
    "65536",
    "2147483647",
    "-2147483648",
    "4294967295",
    "18446744073709551615",
    "1e38",
    "-1e38",
    "1e-38",
    "1e-45",
    "true",
    "nan",
    "P(0|0|0)",
    "P(1|2|3)",
    "P(1e38|0|0)",
    "V(0|0|1)",
    "V(0|1|0)",
    "V(0|0|0)",
    "V(1e-20|0|0)",
    "V(1e30|1e30|0)",
    "C(1|1|1|1)",
    "C(0|0|0|0)",
    "left|bottom",
    "center|top",
    "../data/box.ASE",
    "../data/sky.png",
    "../data/masks/crosshair.bw",
};

/// All elements, each from its start tag to behind its end.
Spans findElements(const std::string& xml) {
    Spans found;
    std::vector<std::size_t> open;
    for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
        const std::size_t end = xml.find('>', at);
        if (end == std::string::npos) break;
        const char kind = xml[at + 1];
        if (kind == '!' || kind == '?') continue;
        if (kind != '/') {
            if (xml[end - 1] != '/') open.push_back(found.size());
            found.push_back({at, end + 1});
        } else if (!open.empty()) {
            found[open.back()].end = end + 1;
            open.pop_back();
        }
    }
    return found;
}

/// What stands between the quotes of all attributes.
Spans findValues(const std::string& xml) {
    Spans found;
    for (std::size_t at = xml.find('='); at != std::string::npos; at = xml.find('=', at + 1)) {
        const char quote = at + 1 < xml.size() ? xml[at + 1] : ' ';
        if (quote != '\'' && quote != '"') continue;
        const std::size_t end = xml.find(quote, at + 2);
        if (end == std::string::npos) break;
        found.push_back({at + 2, end});
        at = end;
    }
    return found;
}

std::string mutateBytes(std::string bytes, std::size_t longest) {
    const std::size_t size = std::min(bytes.size(), longest);
    bytes.resize(longest);
    bytes.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(bytes.data()), size, longest));
    return bytes;
}

std::string mutateValue(const std::string& value) {
    std::string mutated = mutateBytes(value, longest_value);
    std::erase_if(mutated, [](unsigned char c) {
        return c < ' ' || c > '~' || c == '<' || c == '&' || c == '"' || c == '\'';
    });
    return mutated;
}

class Mutation {
public:
    Mutation(std::string text, unsigned int seed) : xml(std::move(text)), dice(seed) {}

    std::string run() {
        const Spans values = findValues(xml), elements = findElements(xml);
        if (values.empty() || elements.empty()) return xml;
        const Span value = pick(values), element = pick(elements);
        switch (dice() % 12) {
            case 0:
            case 1:
                return put(value, pick(values).in(xml));
            case 2:
            case 3:
            case 4:
                return put(value, odd_values[dice() % std::size(odd_values)]);
            case 5:
            case 6:
            case 7:
                return put(value, mutateValue(value.in(xml)));
            case 8:
                return put(element, "");
            case 9:
                return put(element, pick(elements).in(xml));
            case 10:
                return insert(elements, pick(elements).in(xml));
            default:
                return put(findAttribute(value), "");
        }
    }

    /// The element goes behind another, or becomes the first child of one.
    std::string insert(const Spans& elements, const std::string& element) {
        if (elements.empty()) return xml;
        const Span place = pick(elements);
        const std::size_t tag_end = xml.find('>', place.start) + 1;
        const std::size_t at = dice() % 2 == 0 ? tag_end : place.end;
        return put({at, at}, element);
    }

    const Span& pick(const Spans& spans) { return spans[dice() % spans.size()]; }

private:
    std::string put(const Span& span, const std::string& by) const {
        return std::string(xml).replace(span.start, span.end - span.start, by);
    }

    /// The attribute of a value, with its name and quotes.
    Span findAttribute(const Span& value) const {
        const std::size_t before = xml.find_last_of(" \t\r\n", value.start);
        return {before == std::string::npos ? 0 : before, value.end + 1};
    }

    std::string xml;
    std::minstd_rand dice;
};

/// One random change to the text, which does not grow beyond `longest` bytes.
std::string mutate(const std::string& text, std::size_t longest, unsigned int seed) {
    constexpr unsigned int bytes_share = 20;  // one change in so many is to any bytes
    const std::size_t border = std::min(text.find('\0'), text.size());
    const std::string xml = text.substr(0, border), rest = text.substr(border);
    if (seed % bytes_share == 0) return mutateBytes(text, longest);
    const bool change_rest = !rest.empty() && seed % 2 == 0;
    const std::string changed =
        change_rest ? xml + mutateBytes(rest, rest.size() + 16) : Mutation(xml, seed).run() + rest;
    return changed.size() <= longest ? changed : text;
}

/// The first text with an element of the second.
std::string cross(const std::string& first, const std::string& second, unsigned int seed) {
    const Spans elements = findElements(second);
    if (elements.empty()) return first;
    Mutation mutation(first, seed);
    return mutation.insert(findElements(first), mutation.pick(elements).in(second));
}

}  // namespace

extern "C" {

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t longest,
                                    unsigned int seed) {
    const std::string text(data, data + size);
    const std::string mutated = mutate(text, longest, seed);
    std::copy(mutated.begin(), mutated.end(), data);
    return mutated.size();
}

std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t first_size,
                                      const std::uint8_t* second, std::size_t second_size,
                                      std::uint8_t* out, std::size_t longest, unsigned int seed) {
    const std::string crossed = cross(std::string(first, first + first_size),
                                      std::string(second, second + second_size), seed);
    if (crossed.size() > longest) return 0;
    std::copy(crossed.begin(), crossed.end(), out);
    return crossed.size();
}
}
