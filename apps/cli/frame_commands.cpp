#include "apps/cli/frame_commands.h"

#include <optional>
#include <string>
#include <variant>

#include "aluframe/combinations/rules.h"
#include "aluframe/texts/text.h"
#include "apps/cli/shared_options.h"

namespace aluframe::cli {

namespace {

/// Numbers of nodes or elements: all of them, or `--nodes=1,3,10-20`.
void add_numbers(CLI::App& app, const std::string& name, picture::Numbers& numbers,
                 const std::string& help) {
  app.add_flag(name + "{all}")->description(help)->each([&numbers](const std::string& word) {
    numbers.are_shown = true;
    if (word == "all") return;
    auto parsed = model::parse_number_ranges(word);
    // The parser puts the option's name before it.
    if (const auto* problem = std::get_if<std::string>(&parsed)) {
      throw CLI::ValidationError(*problem);
    }
    numbers.only = std::get<model::NumberRanges>(std::move(parsed));
  });
}

}  // namespace

void add_members(CLI::App& app, MembersOptions& options, int& status) {
  CLI::App* members = app.add_subcommand(
      "members", texts::translated("Show members, their lengths and effective length factors"));
  members->add_option("MODEL", options.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  members->add_flag("--segments", options.segments,
                    texts::translated("Show the pieces between restraints: lb, Mcr, phi_b and K of "
                                      "each"));
  add_allow_outside(*members, options.allow_outside);
  add_elements(*members, options.common.selection.elements);
  add_format(*members, options.common.format);
  members->callback([&] { status = run_members_command(options); });
}

void add_made_combinations(CLI::App& app, CombinationsOptions& options, int& status) {
  CLI::App* made = app.add_subcommand(
      "combinations",
      texts::translated("Show the load combinations of a model and those that a rule makes"));
  made->add_option("MODEL", options.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  add_allow_outside(*made, options.allow_outside);
  made->add_option(
          "--rule", options.rule,
          texts::translated("In place of the model's rule: {}", combinations::rule_names()))
      ->type_name("RULE");
  made->add_flag(
      "--explain", options.explain,
      texts::translated("Which action leads, which accompany, and what lessens their effect"));
  made->add_flag("--write", options.write,
                 texts::translated("Write them into the model file in place of the rule"))
      ->excludes("--explain");
  add_format(*made, options.format);
  made->callback([&] { status = run_combinations_command(options); });
}

void add_buckling(CLI::App& app, BucklingCommandOptions& options, int& status) {
  CLI::App* buckling = app.add_subcommand(
      "buckling",
      texts::translated("Show the factors of the loads at which the frame buckles, and how"));
  buckling->add_option("MODEL", options.input.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  add_allow_outside(*buckling, options.input.allow_outside);
  add_parsed(*buckling, "--cases", options.subjects.cases, ranges_or_throw,
             texts::translated("These load cases in place of combinations, such as 1,3,10-20"));
  add_parsed(*buckling, "--combinations", options.subjects.combinations, ranges_or_throw,
             texts::translated("Only these combinations"));
  constexpr int most_modes = 100;
  buckling
      ->add_option("--modes", options.subjects.modes, texts::translated("How many factors of each"))
      ->check(CLI::Range(1, most_modes))
      ->type_name("N");
  buckling->add_flag(
      "--reversed", options.subjects.reversed,
      texts::translated("Also the factor of all loads the other way round, as a negative one"));
  buckling->add_flag(
      "--limit-load", options.limit_load,
      texts::translated(
          "In their place the largest factors that the frame carries, followed through "
          "large displacements"));
  constexpr double most = 1e6;
  buckling
      ->add_option("--largest-factor", options.largest_factor,
                   texts::translated("Look for limit loads up to this factor; 10 when not given"))
      ->check(number_between(1e-3, most))
      ->type_name("FACTOR");
  add_format(*buckling, options.format);
  buckling->add_option("--output", options.output, texts::translated("Write to this file"))
      ->type_name("FILE");
  buckling->callback([&] { status = run_buckling_command(options); });
}

void add_deflections(CLI::App& app, DeflectionsOptions& options, int& status) {
  CLI::App* deflections = app.add_subcommand(
      "deflections",
      texts::translated("Show how far members bend and nodes move in use, and their limits"));
  deflections->add_option("MODEL", options.input.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  add_second_order(*deflections, options.input);
  add_allow_outside(*deflections, options.input.allow_outside);
  add_parsed(*deflections, "--combinations", options.combinations, ranges_or_throw,
             texts::translated("Only these combinations"));
  add_format(*deflections, options.format);
  deflections->add_option("--output", options.output, texts::translated("Write to this file"))
      ->type_name("FILE");
  deflections->callback([&] { status = run_deflections_command(options); });
}

void add_analyse(CLI::App& app, AnalyseOptions& options, int& status) {
  CLI::App* analyse = app.add_subcommand(
      "analyse",
      texts::translated(
          "Show displacements, reactions and element forces under the loads of a model"));
  analyse->add_option("MODEL", options.input.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  add_second_order(*analyse, options.input);
  add_allow_outside(*analyse, options.input.allow_outside);
  const auto add_ranges = [&](const char* name, model::NumberRanges& ranges,
                              const std::string& help) {
    add_parsed(*analyse, name, ranges, ranges_or_throw, help);
  };
  add_ranges("--cases", options.subjects.cases,
             texts::translated("Only these load cases, such as 1,3,10-20"));
  add_ranges("--combinations", options.subjects.combinations,
             texts::translated("These combinations in place of load cases"));
  add_ranges("--elements", options.elements, texts::translated("Forces of these elements only"));
  add_ranges("--nodes", options.nodes,
             texts::translated("Displacements and reactions of these nodes only"));
  const std::string tables =
      "summary, displacements, reactions, forces, area_loads, pressures, line_loads";
  analyse
      ->add_option_function<std::vector<std::string>>(
          "--show",
          [&options, tables](const std::vector<std::string>& names) {
            for (const std::string& name : names) {
              options.show.insert(one_of(tables::parse_analysis_table, tables)("--show", name));
            }
          },
          texts::translated("Only these tables: {}", tables))
      ->delimiter(',')
      ->type_name("TABLES");
  add_format(*analyse, options.format,
             texts::translated("How to print: table, json or csv (one table)"));
  analyse
      ->add_option("--units", options.units,
                   texts::translated("Units, such as N,mm; the model's when not given"))
      ->type_name("FORCE,LENGTH");
  analyse->add_option("--output", options.output, texts::translated("Write to this file"))
      ->type_name("FILE");
  analyse->callback([&] { status = run_analyse_command(options); });
}

void add_picture(CLI::App& app, PictureCommandOptions& options, int& status) {
  CLI::App* command =
      app.add_subcommand("picture", texts::translated("Draw a frame, its loads, forces or ratios"));
  add_input(*command, options.input);
  command
      ->add_option("--svg", options.svg,
                   texts::translated("Write the picture to this file; - is standard output"))
      ->required()
      ->type_name("FILE");
  const auto add_number = [&](const char* name, std::optional<model::Number>& number,
                              const std::string& help) {
    command->add_option(name, number, help)
        ->check(CLI::Range(model::Number{1}, model::max_number))
        ->type_name("NUMBER");
  };
  const std::string views(picture::view_names());
  add_parsed(*command, "--view", options.wanted.view, one_of(picture::parse_view, views),
             texts::translated("From where: {}; a plane frame's plane when not given", views));
  add_numbers(*command, "--nodes", options.wanted.node_numbers,
              texts::translated("Numbers of the nodes; only some with --nodes=1,3,10-20"));
  add_numbers(*command, "--elements", options.wanted.element_numbers,
              texts::translated("Numbers of the elements; only some with --elements=1,3,10-20"));
  command->add_flag("--axes", options.wanted.local_axes,
                    texts::translated("Local axes of the elements"));
  add_number("--loads", options.wanted.loads, texts::translated("Loads of this load case"));
  add_number("--deformed", options.wanted.deformed,
             texts::translated("The frame as this load case displaces it, by linear analysis"));
  const std::string components(picture::component_names());
  add_parsed(*command, "--diagram", options.wanted.diagram,
             one_of(picture::parse_component, components),
             texts::translated("A force along the elements: {}", components));
  add_number("--case", options.wanted.load_case, texts::translated("The load case of the diagram"));
  add_number("--combination", options.wanted.combination,
             texts::translated("The combination of the diagram"));
  const std::string colours(picture::colour_names());
  add_parsed(*command, "--colour", options.wanted.colour, one_of(picture::parse_colour, colours),
             texts::translated("Colour the elements by {}", colours));
  command
      ->add_option("--results", options.wanted.results,
                   texts::translated("Result file of the ratios; beside the model when not given"))
      ->type_name("FILE");
  command->callback([&] { status = run_picture_command(options); });
}

}  // namespace aluframe::cli
