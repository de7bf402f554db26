#include "json_mutator.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

typedef nlohmann::ordered_json Json;
typedef std::mt19937 Random;

const char* const VALUES[] = {"null",
                              "true",
                              "0",
                              "1",
                              "-1",
                              "2",
                              "7",
                              "8",
                              "9",
                              "100",
                              "4096",
                              "65536",
                              "2147483647",
                              "-2147483648",
                              "2147483648",
                              "18446744073709551615",
                              "0.5",
                              "-0.0",
                              "1e-320",
                              "1e300",
                              "1.7976931348623157e308",
                              "\"\"",
                              "\"a\"",
                              "\"0\"",
                              "\"-12.5\"",
                              "\"#102030\"",
                              "\"\\u0000\"",
                              "\"a,b\"",
                              "\"'\"",
                              "\"\\ud83d\\ude00\"",
                              "[]",
                              "{}",
                              "[[[[]]]]",
                              "[\"a\",\"b\",\"c\",\"d\",\"e\",\"f\",\"g\",\"h\",\"i\"]",
                              "{\"index\":0}",
                              "[0,1,2]"};

/// All nodes below `node`, and itself.
void collect(Json& node, std::vector<Json*>& nodes)
{
    nodes.push_back(&node);
    if (node.is_structured()) {
        for (Json& child : node)
            collect(child, nodes);
    }
}

Json newValue(Random& random)
{
    return Json::parse(VALUES[random() % (sizeof(VALUES) / sizeof(VALUES[0]))]);
}

void changeText(std::string& text, Random& random)
{
    std::vector<std::uint8_t> bytes(text.begin(), text.end());
    bytes.resize(text.size() + 16);
    bytes.resize(LLVMFuzzerMutate(bytes.data(), text.size(), bytes.size()));
    text.assign(bytes.begin(), bytes.end());
    if (random() % 50 == 0)
        text.append(5000, 'x');
}

void changeMembers(Json& node, Random& random)
{
    if (node.empty())
        return;
    const std::size_t at = random() % node.size();
    if (node.is_object()) {
        const auto member = std::next(node.begin(), static_cast<std::ptrdiff_t>(at));
        const std::string key = member.key();
        if (random() % 2)
            node.erase(key);
        else
            node[key + "x"] = newValue(random);
    } else if (random() % 2) {
        node.erase(at);
    } else {
        const Json copy = node[at];
        node.insert(node.begin() + static_cast<std::ptrdiff_t>(random() % node.size()), copy);
    }
}

void change(Json& root, Random& random)
{
    std::vector<Json*> nodes;
    collect(root, nodes);
    Json& node = *nodes[random() % nodes.size()];
    if (random() % 8 == 0)
        node = Json(*nodes[random() % nodes.size()]);
    else if (node.is_structured())
        changeMembers(node, random);
    else if (node.is_string() && random() % 2)
        changeText(node.get_ref<std::string&>(), random);
    else if (node.is_number() && random() % 2)
        node = static_cast<int>(random() % 2000) - 500;
    else
        node = newValue(random);
}

} // namespace

std::size_t mutateJson(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    Random random(seed);
    Json root = Json::parse(data, data + size, nullptr, false);
    if (root.is_discarded() || random() % 8 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    for (unsigned i = random() % 3 + 1; i > 0; --i)
        change(root, random);
    const std::string text = root.dump(-1, ' ', false, Json::error_handler_t::replace);
    const std::size_t length = std::min(text.size(), maxSize);
    std::memcpy(data, text.data(), length);
    return length;
}
