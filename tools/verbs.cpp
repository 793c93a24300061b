#include "tools/verbs.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "tools/errors.h"

namespace quorvex::tools {
namespace {

constexpr std::size_t kFarthestGuess = 2;  // letters that differ, are missing or too many

// Letters to change, to put in or to take out until `a` is `b` (Levenshtein, 1966).
std::size_t EditDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> distances(b.size() + 1);  // of the first letters of a to those of b
  std::iota(distances.begin(), distances.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = distances[0];
    distances[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = distances[j + 1];
      distances[j + 1] = std::min({changed, distances[j] + 1, distances[j + 1] + 1});
    }
  }
  return distances.back();
}

// A group of options is a subcommand without a name to the parser.
std::vector<const CLI::App*> NamedSubcommands(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App* verb) { return !verb->get_name().empty(); });
}

// Without those that are hidden from the help.
std::vector<std::string> VerbsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* verb : NamedSubcommands(app)) {
    if (!verb->get_group().empty()) {
      names.push_back(verb->get_name());
    }
  }
  return names;
}

std::string DescribeUnknown(const std::string& word, const std::vector<std::string>& verbs) {
  std::string nearest;
  std::size_t least = kFarthestGuess + 1;
  std::string all;
  for (const std::string& verb : verbs) {
    const std::size_t distance = EditDistance(CLI::detail::to_lower(word), verb);
    if (distance < least) {
      least = distance;
      nearest = verb;
    }
    all += (all.empty() ? "" : ", ") + verb;
  }
  return nearest.empty() ? fmt::format("there is no verb '{}'; there are {}", word, all)
                         : fmt::format("there is no verb '{}'; did you mean {}?", word, nearest);
}

}  // namespace

std::vector<std::string> WithHelpAsOption(std::vector<std::string> words) {
  if (!words.empty() && words.front() == "help") {
    words.erase(words.begin());
    words.push_back("--help");
  }
  return words;
}

void RequireKnownVerbs(const CLI::App& app, const std::vector<std::string>& words) {
  const CLI::App* current = &app;
  for (const std::string& word : words) {
    const std::vector<const CLI::App*> verbs = NamedSubcommands(*current);
    if (verbs.empty() || word.empty() || word.front() == '-') {
      return;
    }
    const auto known = std::find_if(verbs.begin(), verbs.end(),
                                    [&](const CLI::App* verb) { return verb->get_name() == word; });
    if (known == verbs.end()) {
      throw InputError(DescribeUnknown(word, VerbsOf(*current)));
    }
    current = *known;
  }
}

}  // namespace quorvex::tools
