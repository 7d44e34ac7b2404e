// Parses the command line and hands over to the commands.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <variant>

#include "aluframe/files/error_text.h"
#include "apps/cli/analyse_command.h"
#include "apps/cli/buckling_command.h"
#include "apps/cli/check_command.h"
#include "apps/cli/document_command.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/explain_command.h"
#include "apps/cli/members_command.h"
#include "apps/cli/picture_command.h"
#include "apps/cli/points_command.h"
#include "apps/cli/report_command.h"
#include "apps/cli/results_command.h"
#include "apps/cli/section_command.h"
#include "apps/cli/settings_command.h"
#include "apps/cli/shared_options.h"
#include "apps/cli/terminal.h"
#include "apps/cli/validate_command.h"

namespace {

using namespace aluframe::cli;
namespace files = aluframe::files;
namespace model = aluframe::model;
namespace run = aluframe::run;
namespace tables = aluframe::tables;
namespace texts = aluframe::texts;

void add_check(CLI::App& app, CheckOptions& options, int& status) {
  CLI::App* check = app.add_subcommand("check", "Check every element of a model");
  add_input(*check, options.input);
  check->add_option("--output", options.output, "Result file; beside the model when not given")
      ->type_name("FILE");
  add_elements(*check, options.common.selection.elements);
  add_combinations(*check, options.common.selection.combinations);
  add_format(*check, options.common.format);
  add_parsed(*check, "--progress", options.progress,
             one_of(parse_progress_mode, "auto, always, never"),
             "Progress bar: auto (on a terminal), always or never");
  add_strict(*check, options.strict);
  check->add_flag_callback(
      "--no-buckling", [&options] { options.input.buckling = run::FrameBuckling::off; },
      "Do not look at the buckling of the whole frame");
  add_parsed(*check, "--second-opinion", options.second_opinion,
             one_of(parse_second_opinion, "on, off"),
             "Safe ratios beside those of the checks: on or off");
  check->add_flag_callback(
      "--wait", [&options] { options.when_busy = files::WhenBusy::wait; },
      "Wait for another run that is writing the result file");
  check->add_flag_callback(
      "--resume", [&options] { options.beginning = run::Beginning::resumed; },
      "Check only what is missing in the partial results of a check that ended early");
  check->callback([&] { status = run_check_command(options); });
}

void add_results(CLI::App& app, ResultsOptions& options, int& status) {
  CLI::App* results = app.add_subcommand("results", "Show the stored results of a model");
  results->add_option("MODEL", options.input, "Model file, or a result file (.aluresult)")
      ->required()
      ->type_name("");
  add_allow_outside(*results, options.allow_outside);
  add_elements(*results, options.query.elements);
  add_combinations(*results, options.combinations);
  add_format(*results, options.format);
  results->add_option("--sort", options.query.sort, "Sort by " + run::sort_names())
      ->check([](const std::string& name) {
        return run::is_sort_name(name)
                   ? std::string()
                   : "found '" + name + "', must be one of " + run::sort_names();
      })
      ->type_name("KEY");
  results->add_option("--top", options.query.top, "Only the first N elements")
      ->check([](const std::string& text) {
        return text.find_first_not_of("0123456789") == std::string::npos
                   ? std::string()
                   : "found '" + text + "', must be a whole number, 0 or more";
      })
      ->type_name("N");
  results->add_option("--over", options.query.over, "Only elements with a ratio above this")
      ->check(number_between(-1e300, 1e300))
      ->type_name("RATIO");
  results->add_option("--element", options.element, "One element: every combination and position")
      ->type_name("NUMBER");
  results->add_flag("--not-checked", options.not_checked, "What was not checked, by reason")
      ->excludes("--element");
  results->add_flag("--remarks", options.remarks, "What the run remarked, all or on one element")
      ->excludes("--not-checked");
  results
      ->add_flag("--buckling", options.buckling,
                 "How far the whole frame is from buckling in every combination")
      ->excludes("--not-checked")
      ->excludes("--remarks")
      ->excludes("--element");
  results->get_option("--combinations")->needs("--element");
  for (const char* of_the_list : {"--elements", "--sort", "--top", "--over"}) {
    results->get_option(of_the_list)->excludes("--element");
  }
  results->add_option("--units", options.units, "Stresses in these units, such as kN,m")
      ->type_name("FORCE,LENGTH");
  results->add_option("--output", options.output, "Write to this file")->type_name("FILE");
  results->callback([&] { status = run_results_command(options); });
}

void add_explain(CLI::App& app, ExplainOptions& options, int& status) {
  CLI::App* explain =
      app.add_subcommand("explain", "Show step by step how a ratio of the results comes about");
  add_input(*explain, options.input);
  explain->add_option("--element", options.wanted.element, "The element")
      ->required()
      ->type_name("NUMBER");
  add_parsed(*explain, "--item", options.wanted.item, one_of(run::parse_item, run::item_names()),
             "The check; the worst when not given: " + run::item_names());
  explain
      ->add_option("--combination", options.wanted.combination,
                   "The combination; the worst when not given")
      ->type_name("NUMBER");
  add_parsed(*explain, "--side", options.wanted.min_side, one_of(parse_side, "max, min"),
             "The side of an envelope's extremes: max or min; the worse when not given");
  add_parsed(*explain, "--position", options.wanted.position,
             one_of(parse_position, "I, 1/4, 1/2, 3/4, J"),
             "Where in the element: I, 1/4, 1/2, 3/4 or J; the worst when not given");
  explain->add_option("--results", options.results, "Result file; beside the model when not given")
      ->type_name("FILE");
  add_parsed(*explain, "--format", options.format,
             one_of(parse_explanation_format, "table, json, html"),
             "How to print: table, json or html");
  explain->add_option("--output", options.output, "Write to this file")->type_name("FILE");
  explain->callback([&] { status = run_explain_command(options); });
}

void add_validate(CLI::App& app, run::InputOptions& options, int& status) {
  CLI::App* validate = app.add_subcommand("validate", "Check a model file for faults");
  add_input(*validate, options);
  validate->callback([&] { status = run_validate_command(options); });
}

void add_members(CLI::App& app, MembersOptions& options, int& status) {
  CLI::App* members =
      app.add_subcommand("members", "Show members, their lengths and effective length factors");
  members->add_option("MODEL", options.model, "Model file")->required()->type_name("");
  add_allow_outside(*members, options.allow_outside);
  add_elements(*members, options.common.selection.elements);
  add_format(*members, options.common.format);
  members->callback([&] { status = run_members_command(options); });
}

void add_points(CLI::App& app, PointsOptions& options, int& status) {
  CLI::App* points =
      app.add_subcommand("points", "Check bare points: JSON Lines in, JSON Lines out");
  points->add_option("FILE", options.input, "One check point a line; - or none: standard input")
      ->type_name("");
  points->add_flag("--second-opinion", options.second_opinion,
                   "Safe ratios beside the results (docs/behaviour.md)");
  points->callback([&] { status = run_points_command(options); });
}

void add_report(CLI::App& app, ReportOptions& options, int& status) {
  CLI::App* report = app.add_subcommand("report", "Write the calculation report of a model");
  add_input(*report, options.input);
  add_elements(*report, options.common.selection.elements);
  report->add_option("--results", options.results, "Result file; beside the model when not given")
      ->type_name("FILE");
  const std::vector<CLI::Option*> of_text_report{
      report
          ->add_option("--output", options.output,
                       "Report (.alu); beside the model when not given; - writes its readable text "
                       "to standard output")
          ->type_name("FILE"),
      report
          ->add_option(
              "--readable", options.readable,
              "The copy in UTF-8 with readable Chinese texts; beside the report when not given")
          ->type_name("FILE"),
      report->add_option("--units", options.units, "Units of the report, N,mm when not given")
          ->type_name("FORCE,LENGTH"),
      report->add_flag("--open", options.open, "Open the readable copy in $VISUAL or $EDITOR")};
  add_strict(*report, options.strict);
  CLI::Option* html =
      report
          ->add_option("--html", options.html,
                       "In its place the calculation document, a page of HTML to be printed; - is "
                       "standard output")
          ->type_name("FILE");
  for (CLI::Option* option : of_text_report) html->excludes(option);
  report->callback([&] {
    status =
        options.html ? run_document_command(options, *options.html) : run_report_command(options);
  });
}

std::optional<aluframe::model::Shape> shape_of_list(const std::string& name) {
  const auto shape = aluframe::model::parse_shape(name);
  return shape != aluframe::model::Shape::other ? shape : std::nullopt;
}

void add_section(CLI::App& app, SectionOptions& options, int& status) {
  CLI::App* section =
      app.add_subcommand("section", "Show the constants of a section, or list the profiles");
  section
      ->add_option("NAME", options.name,
                   "A profile, or a shape and its dimensions in mm, such as \"H 300x150x8x12\"")
      ->type_name("");
  section
      ->add_option_function<std::string>(
          "--list",
          [&options](const std::string& shape) {
            options.list = true;
            if (!shape.empty()) {
              options.shape = one_of(shape_of_list, "C, H, T, B, P, 2C, SR")("--list", shape);
            }
          },
          "List the profiles, all or of one shape: C, H, T, B, P, 2C, SR")
      ->expected(0, 1)
      ->type_name("[SHAPE]");
  section
      ->add_option("--catalogue", options.catalogues, "Profiles of your own (CSV); may be repeated")
      ->allow_extra_args(false)  // what follows the file is the section's name
      ->type_name("FILE");
  section->add_option("--svg", options.svg, "Draw the section")->type_name("FILE");
  section
      ->add_option("--mesh", options.across,
                   "Cells of the mesh across the thinnest plate, 4 when not given")
      ->check(CLI::Range(1, most_cells_across))
      ->type_name("NUMBER");
  add_format(*section, options.format);
  section->callback([&] { status = run_section_command(options); });
}

/// Options of the one material that is to be changed.
void add_material_changes(CLI::App& settings, WantedChanges& wanted) {
  CLI::Option* material =
      settings.add_option("--material", wanted.material, "The material to change")
          ->type_name("NUMBER");
  CLI::Option* grade =
      settings.add_option("--grade", wanted.grade, "Its alloy, which gives all its values")
          ->type_name("GRADE")
          ->needs(material);
  settings.add_option("--name", wanted.name, "Its name")->type_name("TEXT")->needs(material);
  const auto add_value = [&](const char* name, std::optional<std::string>& value,
                             const char* help) {
    settings.add_option(name, value, help)->type_name("NUMBER")->needs(material)->excludes(grade);
  };
  add_value("--e", wanted.e, "A value of your own: elastic modulus, N/mm2");
  add_value("--poisson", wanted.poisson, "Poisson's ratio");
  add_value("--fu", wanted.fu, "Tensile strength, N/mm2");
  add_value("--f02-thin", wanted.f02_thin, "Proof strength up to 10 mm, N/mm2");
  add_value("--f02-thick", wanted.f02_thick, "Proof strength above 10 mm, N/mm2");
}

void add_buckling(CLI::App& app, BucklingCommandOptions& options, int& status) {
  CLI::App* buckling = app.add_subcommand(
      "buckling", "Show the factors of the loads at which the frame buckles, and how");
  buckling->add_option("MODEL", options.input.model, "Model file")->required()->type_name("");
  add_allow_outside(*buckling, options.input.allow_outside);
  add_parsed(*buckling, "--cases", options.subjects.cases, ranges_or_throw,
             "These load cases in place of combinations, such as 1,3,10-20");
  add_parsed(*buckling, "--combinations", options.subjects.combinations, ranges_or_throw,
             "Only these combinations");
  constexpr int most_modes = 100;
  buckling->add_option("--modes", options.subjects.modes, "How many factors of each")
      ->check(CLI::Range(1, most_modes))
      ->type_name("N");
  buckling->add_flag("--reversed", options.subjects.reversed,
                     "Also the factor of all loads the other way round, as a negative one");
  buckling->add_flag("--limit-load", options.limit_load,
                     "In their place the largest factors that the frame carries, followed through "
                     "large displacements");
  constexpr double most = 1e6;
  buckling
      ->add_option("--largest-factor", options.largest_factor,
                   "Look for limit loads up to this factor; 10 when not given")
      ->check(number_between(1e-3, most))
      ->type_name("FACTOR");
  add_format(*buckling, options.format);
  buckling->add_option("--output", options.output, "Write to this file")->type_name("FILE");
  buckling->callback([&] { status = run_buckling_command(options); });
}

void add_analyse(CLI::App& app, AnalyseOptions& options, int& status) {
  CLI::App* analyse = app.add_subcommand(
      "analyse", "Show displacements, reactions and element forces under the loads of a model");
  analyse->add_option("MODEL", options.input.model, "Model file")->required()->type_name("");
  add_second_order(*analyse, options.input);
  add_allow_outside(*analyse, options.input.allow_outside);
  const auto add_ranges = [&](const char* name, model::NumberRanges& ranges, const char* help) {
    add_parsed(*analyse, name, ranges, ranges_or_throw, help);
  };
  add_ranges("--cases", options.subjects.cases, "Only these load cases, such as 1,3,10-20");
  add_ranges("--combinations", options.subjects.combinations,
             "These combinations in place of load cases");
  add_ranges("--elements", options.elements, "Forces of these elements only");
  add_ranges("--nodes", options.nodes, "Displacements and reactions of these nodes only");
  const std::string tables = "summary, displacements, reactions, forces";
  analyse
      ->add_option_function<std::vector<std::string>>(
          "--show",
          [&options, tables](const std::vector<std::string>& names) {
            for (const std::string& name : names) {
              options.show.insert(one_of(tables::parse_analysis_table, tables)("--show", name));
            }
          },
          "Only these tables: " + tables)
      ->delimiter(',')
      ->type_name("TABLES");
  add_format(*analyse, options.format, "How to print: table, json or csv (one table)");
  analyse->add_option("--units", options.units, "Units, such as N,mm; the model's when not given")
      ->type_name("FORCE,LENGTH");
  analyse->add_option("--output", options.output, "Write to this file")->type_name("FILE");
  analyse->callback([&] { status = run_analyse_command(options); });
}

/// Numbers of nodes or elements: all of them, or `--nodes=1,3,10-20`.
void add_numbers(CLI::App& app, const std::string& name, aluframe::picture::Numbers& numbers,
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

void add_picture(CLI::App& app, PictureCommandOptions& options, int& status) {
  namespace picture = aluframe::picture;
  CLI::App* command = app.add_subcommand("picture", "Draw a frame, its loads, forces or ratios");
  add_input(*command, options.input);
  command->add_option("--svg", options.svg, "Write the picture to this file; - is standard output")
      ->required()
      ->type_name("FILE");
  const auto add_number = [&](const char* name, std::optional<model::Number>& number,
                              const char* help) {
    command->add_option(name, number, help)
        ->check(CLI::Range(model::Number{1}, model::max_number))
        ->type_name("NUMBER");
  };
  const std::string views(picture::view_names());
  add_parsed(*command, "--view", options.wanted.view, one_of(picture::parse_view, views),
             "From where: " + views + "; a plane frame's plane when not given");
  add_numbers(*command, "--nodes", options.wanted.node_numbers,
              "Numbers of the nodes; only some with --nodes=1,3,10-20");
  add_numbers(*command, "--elements", options.wanted.element_numbers,
              "Numbers of the elements; only some with --elements=1,3,10-20");
  command->add_flag("--axes", options.wanted.local_axes, "Local axes of the elements");
  add_number("--loads", options.wanted.loads, "Loads of this load case");
  add_number("--deformed", options.wanted.deformed,
             "The frame as this load case displaces it, by linear analysis");
  const std::string components(picture::component_names());
  add_parsed(*command, "--diagram", options.wanted.diagram,
             one_of(picture::parse_component, components),
             "A force along the elements: " + components);
  add_number("--case", options.wanted.load_case, "The load case of the diagram");
  add_number("--combination", options.wanted.combination, "The combination of the diagram");
  const std::string colours(picture::colour_names());
  add_parsed(*command, "--colour", options.wanted.colour, one_of(picture::parse_colour, colours),
             "Colour the elements by " + colours);
  command
      ->add_option("--results", options.wanted.results,
                   "Result file of the ratios; beside the model when not given")
      ->type_name("FILE");
  command->callback([&] { status = run_picture_command(options); });
}

void add_settings(CLI::App& app, SettingsOptions& options, int& status) {
  CLI::App* settings =
      app.add_subcommand("settings", "Show or change the design settings and materials of a model");
  settings->add_option("MODEL", options.model, "Model file")->required()->type_name("");
  add_allow_outside(*settings, options.allow_outside);
  settings->add_option("--set", options.changes.set, "Change a setting: " + setting_names())
      ->type_name("KEY=VALUE")
      ->take_all()
      ->expected(1);
  add_material_changes(*settings, options.changes);
  add_format(*settings, options.format);
  settings->callback([&] { status = run_settings_command(options); });
}

/// What is wrong with a first word that is no command: the parser would only say that one is
/// missing.
std::optional<std::string> unknown_command(const CLI::App& app, int argc, char** argv) {
  const std::string word = argc > 1 ? argv[1] : "-";
  if (word.starts_with('-')) return std::nullopt;
  std::string names;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (command->get_name() == word) return std::nullopt;
    names += (names.empty() ? "" : ", ") + command->get_name();
  }
  return "found command '" + word + "', must be one of " + names;
}

int run_program(int argc, char** argv) {
  texts::use_language(wanted_language(argc, argv));
  CLI::App app("Checks aluminium frames against GB 50429-2007.", "aluframe");
  app.set_version_flag("--version", "aluframe " ALUFRAME_VERSION);
  app.require_subcommand(1);
  int status = exit_done;
  AnalyseOptions analyse;
  BucklingCommandOptions buckling;
  CheckOptions check;
  ExplainOptions explain;
  ResultsOptions results;
  run::InputOptions validate;
  MembersOptions members;
  PictureCommandOptions picture;
  PointsOptions points;
  ReportOptions report;
  SettingsOptions settings;
  SectionOptions section;
  add_check(app, check, status);
  add_analyse(app, analyse, status);
  add_buckling(app, buckling, status);
  add_results(app, results, status);
  add_explain(app, explain, status);
  add_validate(app, validate, status);
  add_members(app, members, status);
  add_picture(app, picture, status);
  add_points(app, points, status);
  add_report(app, report, status);
  add_settings(app, settings, status);
  add_section(app, section, status);
  add_language(app);
  for (CLI::App* command : app.get_subcommands({})) add_language(*command);
  if (const auto unknown = unknown_command(app, argc, argv)) {
    print_message(*unknown);
    return exit_input_error;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exit_done : exit_input_error;
  }
  return status;
}

const std::string lost_output = "standard output: cannot be written";

/// The status, or that of a failure when a command that ended well lost part of its output.
int with_output_checked(int status) {
  const bool failed_already = status == exit_failure || status == exit_input_error;
  if (finish_stdout() || failed_already) return status;
  print_message(lost_output);
  return exit_failure;
}

}  // namespace

int main(int argc, char** argv) {
  prepare_streams();
  try {
    return with_output_checked(run_program(argc, argv));
  } catch (const std::exception& error) {
    print_message(std::ferror(stdout) != 0 ? lost_output : "aluframe: " + files::error_text(error));
    return exit_failure;
  }
}
