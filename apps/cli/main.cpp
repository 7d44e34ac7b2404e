// Parses the command line and hands over to the commands.

#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/files/error_text.h"
#include "aluframe/platform/environment.h"
#include "aluframe/platform/terminal.h"
#include "aluframe/texts/text.h"
#include "apps/cli/check_command.h"
#include "apps/cli/dialogs_command.h"
#include "apps/cli/document_command.h"
#include "apps/cli/explain_command.h"
#include "apps/cli/frame_commands.h"
#include "apps/cli/init_command.h"
#include "apps/cli/parser.h"
#include "apps/cli/parser_texts.h"
#include "apps/cli/points_command.h"
#include "apps/cli/report_command.h"
#include "apps/cli/results_command.h"
#include "apps/cli/section_command.h"
#include "apps/cli/settings_command.h"
#include "apps/cli/shared_options.h"
#include "apps/cli/terminal.h"
#include "apps/cli/validate_command.h"
#include "apps/exit_status.h"

namespace {

using namespace aluframe;
using namespace aluframe::cli;

void add_check(CLI::App& app, CheckOptions& options, int& status) {
  CLI::App* check =
      app.add_subcommand("check", texts::translated("Check every element of a model"));
  add_input(*check, options.input);
  check
      ->add_option("--output", options.output,
                   texts::translated("Result file; beside the model when not given"))
      ->type_name("FILE");
  add_elements(*check, options.common.selection.elements);
  add_combinations(*check, options.common.selection.combinations);
  add_format(*check, options.common.format);
  add_parsed(*check, "--progress", options.progress,
             one_of(parse_progress_mode, "auto, always, never"),
             texts::translated("Progress bar: auto (on a terminal), always or never"));
  add_strict(*check, options.strict);
  check->add_flag_callback(
      "--no-buckling", [&options] { options.input.buckling = run::FrameBuckling::off; },
      texts::translated("Do not look at the buckling of the whole frame"));
  add_parsed(*check, "--second-opinion", options.second_opinion,
             one_of(parse_second_opinion, "on, off"),
             texts::translated("Safe ratios beside those of the checks: on or off"));
  check->add_flag_callback(
      "--wait", [&options] { options.when_busy = files::WhenBusy::wait; },
      texts::translated("Wait for another run that is writing the result file"));
  check->add_flag_callback(
      "--resume", [&options] { options.beginning = run::Beginning::resumed; },
      texts::translated(
          "Check only what is missing in the partial results of a check that ended early"));
  check->callback([&] { status = run_check_command(options); });
}

void add_results(CLI::App& app, ResultsOptions& options, int& status) {
  CLI::App* results =
      app.add_subcommand("results", texts::translated("Show the stored results of a model"));
  results
      ->add_option("MODEL", options.input,
                   texts::translated("Model file, or a result file (.aluresult)"))
      ->required()
      ->type_name("");
  add_allow_outside(*results, options.allow_outside);
  add_elements(*results, options.query.elements);
  add_combinations(*results, options.combinations);
  add_format(*results, options.format);
  results
      ->add_option("--sort", options.query.sort, texts::translated("Sort by {}", run::sort_names()))
      ->check([](const std::string& name) {
        return run::is_sort_name(name)
                   ? std::string()
                   : texts::translated("found '{}', must be one of {}", name, run::sort_names());
      })
      ->type_name("KEY");
  results->add_option("--top", options.query.top, texts::translated("Only the first N elements"))
      ->check([](const std::string& text) {
        return text.find_first_not_of("0123456789") == std::string::npos
                   ? std::string()
                   : texts::translated("found '{}', must be a whole number, 0 or more", text);
      })
      ->type_name("N");
  results
      ->add_option("--over", options.query.over,
                   texts::translated("Only elements with a ratio above this"))
      ->check(number_between(-1e300, 1e300))
      ->type_name("RATIO");
  results
      ->add_option("--element", options.element,
                   texts::translated("One element: every combination and position"))
      ->type_name("NUMBER");
  results
      ->add_flag("--not-checked", options.not_checked,
                 texts::translated("What was not checked, by reason"))
      ->excludes("--element");
  results
      ->add_flag("--remarks", options.remarks,
                 texts::translated("What the run remarked, all or on one element"))
      ->excludes("--not-checked");
  results
      ->add_flag("--buckling", options.buckling,
                 texts::translated("How far the whole frame is from buckling in every combination"))
      ->excludes("--not-checked")
      ->excludes("--remarks")
      ->excludes("--element");
  results
      ->add_flag("--deflections", options.deflections,
                 texts::translated("How far members bend and nodes move in use, and their limits"))
      ->excludes("--not-checked")
      ->excludes("--remarks")
      ->excludes("--buckling")
      ->excludes("--element");
  results->get_option("--combinations")->needs("--element");
  for (const char* of_the_list : {"--elements", "--sort", "--top", "--over"}) {
    results->get_option(of_the_list)->excludes("--element");
  }
  results
      ->add_option("--units", options.units,
                   texts::translated("Stresses in these units, such as kN,m"))
      ->type_name("FORCE,LENGTH");
  results->add_option("--output", options.output, texts::translated("Write to this file"))
      ->type_name("FILE");
  results->callback([&] { status = run_results_command(options); });
}

void add_explain(CLI::App& app, ExplainOptions& options, int& status) {
  CLI::App* explain = app.add_subcommand(
      "explain", texts::translated("Show step by step how a ratio of the results comes about"));
  add_input(*explain, options.input);
  explain->add_option("--element", options.wanted.element, texts::translated("The element"))
      ->required()
      ->type_name("NUMBER");
  add_parsed(*explain, "--item", options.wanted.item, one_of(run::parse_item, run::item_names()),
             texts::translated("The check; the worst when not given: {}", run::item_names()));
  explain
      ->add_option("--combination", options.wanted.combination,
                   texts::translated("The combination; the worst when not given"))
      ->type_name("NUMBER");
  add_parsed(*explain, "--side", options.wanted.min_side, one_of(parse_side, "max, min"),
             texts::translated(
                 "The side of an envelope's extremes: max or min; the worse when not given"));
  add_parsed(
      *explain, "--position", options.wanted.position,
      one_of(parse_position, "I, 1/4, 1/2, 3/4, J"),
      texts::translated("Where in the element: I, 1/4, 1/2, 3/4 or J; the worst when not given"));
  explain
      ->add_option("--results", options.results,
                   texts::translated("Result file; beside the model when not given"))
      ->type_name("FILE");
  add_parsed(*explain, "--format", options.format,
             one_of(parse_explanation_format, "table, json, html"),
             texts::translated("How to print: table, json or html"));
  explain->add_option("--output", options.output, texts::translated("Write to this file"))
      ->type_name("FILE");
  explain->callback([&] { status = run_explain_command(options); });
}

/// "mullion 3.6 (2.4 to 4.5), hall 4 (2.5 to 8) m": which kinds have a size, and its range.
std::string range_text(std::string_view name) {
  std::string text;
  std::string_view unit;
  for (const starting::Kind& kind : starting::kinds()) {
    for (const starting::Size& size : kind.sizes) {
      if (size.name != name) continue;
      text += (text.empty() ? "" : ", ") + texts::translated("{} {} ({} to {})", kind.name,
                                                             size.standard, size.least, size.most);
      unit = size.unit;
    }
  }
  return text + (unit.empty() ? "" : " ") + std::string(unit);
}

void add_init(CLI::App& app, InitOptions& options, int& status) {
  CLI::App* init = app.add_subcommand(
      "init", texts::translated("Write a model to start from, sound and checked as it stands"));
  init->add_option("KIND", options.kind, texts::translated("One of {}", starting::kind_names()))
      ->required()
      ->type_name("");
  init->add_option("FILE", options.output, texts::translated("The new model file"))
      ->required()
      ->type_name("");
  const std::pair<const char*, const char*> sizes[] = {
      {"span", texts::translatable("Span")},
      {"height", texts::translatable("Height, of a mullion that of a storey")},
      {"rise", texts::translatable("Rise of the roof")},
      {"width", texts::translatable("Width of the deck")},
      {"spacing", texts::translatable("Distance from one to the next")},
      {"storeys", texts::translatable("Number of storeys")},
      {"panels", texts::translatable("Number of panels of a truss")},
      {"rings", texts::translatable("Number of rings")},
      {"sectors", texts::translatable("Number of sectors")},
      {"w0", texts::translatable("Reference wind pressure")},
      {"s0", texts::translatable("Reference snow pressure")}};
  for (const auto& [name, what] : sizes) {
    const std::string key = name;
    init->add_option_function<double>(
            "--" + key, [&options, key](double value) { options.sizes[key] = value; },
            std::string(texts::translation_of(what)) + ": " + range_text(name))
        ->type_name("NUMBER");
  }
  init->add_flag("--force", options.force, texts::translated("Write over a model that exists"));
  init->callback([&] { status = run_init_command(options); });
}

void add_validate(CLI::App& app, run::InputOptions& options, int& status) {
  CLI::App* validate =
      app.add_subcommand("validate", texts::translated("Check a model file for faults"));
  add_input(*validate, options);
  validate->callback([&] { status = run_validate_command(options); });
}

void add_points(CLI::App& app, PointsOptions& options, int& status) {
  CLI::App* points = app.add_subcommand(
      "points", texts::translated("Check bare points: JSON Lines in, JSON Lines out"));
  points
      ->add_option("FILE", options.input,
                   texts::translated("One check point a line; - or none: standard input"))
      ->type_name("");
  points->add_flag("--second-opinion", options.second_opinion,
                   texts::translated("Safe ratios beside the results (docs/behaviour.md)"));
  points->callback([&] { status = run_points_command(options); });
}

void add_report(CLI::App& app, ReportOptions& options, int& status) {
  CLI::App* report =
      app.add_subcommand("report", texts::translated("Write the calculation report of a model"));
  add_input(*report, options.input);
  add_elements(*report, options.common.selection.elements);
  report
      ->add_option("--results", options.results,
                   texts::translated("Result file; beside the model when not given"))
      ->type_name("FILE");
  const std::vector<CLI::Option*> of_text_report{
      report
          ->add_option("--output", options.output,
                       texts::translated("Report (.alu); beside the model when not given; - writes "
                                         "its readable text to standard output"))
          ->type_name("FILE"),
      report
          ->add_option(
              "--readable", options.readable,
              texts::translated("The copy in UTF-8 with readable Chinese texts; beside the "
                                "report when not given"))
          ->type_name("FILE"),
      report
          ->add_option("--units", options.units,
                       texts::translated("Units of the report, N,mm when not given"))
          ->type_name("FORCE,LENGTH"),
      report->add_flag("--open", options.open,
                       texts::translated("Open the readable copy in $VISUAL or $EDITOR"))};
  add_strict(*report, options.strict);
  CLI::Option* html =
      report
          ->add_option("--html", options.html,
                       texts::translated("In its place the calculation document, a page of HTML to "
                                         "be printed; - is standard output"))
          ->type_name("FILE");
  for (CLI::Option* option : of_text_report) html->excludes(option);
  add_parsed(*report, "--detail", options.detail,
             one_of(document::parse_document_detail, "summary, governing, full"),
             texts::translated("How far the document derives its checks: summary, governing (the "
                               "worst of each element) or full"))
      ->needs(html);
  report->callback([&] {
    status =
        options.html ? run_document_command(options, *options.html) : run_report_command(options);
  });
}

std::optional<model::Shape> shape_of_list(const std::string& name) {
  const auto shape = model::parse_shape(name);
  return shape != model::Shape::other ? shape : std::nullopt;
}

void add_section(CLI::App& app, SectionOptions& options, int& status) {
  CLI::App* section = app.add_subcommand(
      "section", texts::translated("Show the constants of a section, or list the profiles"));
  section
      ->add_option(
          "NAME", options.name,
          texts::translated(
              "A profile, or a shape and its dimensions in mm, such as \"H 300x150x8x12\""))
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
          texts::translated("List the profiles, all or of one shape: C, H, T, B, P, 2C, SR"))
      ->expected(0, 1)
      ->type_name("[SHAPE]");
  section
      ->add_option("--catalogue", options.catalogues,
                   texts::translated("Profiles of your own (CSV); may be repeated"))
      ->allow_extra_args(false)  // what follows the file is the section's name
      ->type_name("FILE");
  section->add_option("--svg", options.svg, texts::translated("Draw the section"))
      ->type_name("FILE");
  section
      ->add_option(
          "--mesh", options.across,
          texts::translated("Cells of the mesh across the thinnest plate, 4 when not given"))
      ->check(CLI::Range(1, most_cells_across))
      ->type_name("NUMBER");
  add_format(*section, options.format);
  section->callback([&] { status = run_section_command(options); });
}

/// Options of the one material that is to be changed.
void add_material_changes(CLI::App& settings, WantedChanges& wanted) {
  CLI::Option* material =
      settings
          .add_option("--material", wanted.material, texts::translated("The material to change"))
          ->type_name("NUMBER");
  CLI::Option* grade = settings
                           .add_option("--grade", wanted.grade,
                                       texts::translated("Its alloy, which gives all its values"))
                           ->type_name("GRADE")
                           ->needs(material);
  settings.add_option("--name", wanted.name, texts::translated("Its name"))
      ->type_name("TEXT")
      ->needs(material);
  const auto add_value = [&](const char* name, std::optional<std::string>& value,
                             const std::string& help) {
    settings.add_option(name, value, help)->type_name("NUMBER")->needs(material)->excludes(grade);
  };
  add_value("--e", wanted.e, texts::translated("A value of your own: elastic modulus, N/mm2"));
  add_value("--poisson", wanted.poisson, texts::translated("Poisson's ratio"));
  add_value("--fu", wanted.fu, texts::translated("Tensile strength, N/mm2"));
  add_value("--f02-thin", wanted.f02_thin, texts::translated("Proof strength up to 10 mm, N/mm2"));
  add_value("--f02-thick", wanted.f02_thick,
            texts::translated("Proof strength above 10 mm, N/mm2"));
}

void add_settings(CLI::App& app, SettingsOptions& options, int& status) {
  CLI::App* settings = app.add_subcommand(
      "settings", texts::translated("Show or change the design settings and materials of a model"));
  settings->add_option("MODEL", options.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  add_allow_outside(*settings, options.allow_outside);
  settings
      ->add_option("--set", options.changes.set,
                   texts::translated("Change a setting: {}", setting_names()))
      ->type_name("KEY=VALUE")
      ->take_all()
      ->expected(1);
  add_material_changes(*settings, options.changes);
  add_format(*settings, options.format);
  settings->callback([&] { status = run_settings_command(options); });
}

void add_dialogs(CLI::App& app, DialogsOptions& options, int& status) {
  CLI::App* dialogs = app.add_subcommand(
      "dialogs",
      texts::translated("Open the dialogs of a model's settings and materials, and save it"));
  dialogs->add_option("MODEL", options.model, texts::translated("Model file"))
      ->required()
      ->type_name("");
  add_parsed(*dialogs, "--dialog", options.dialog,
             one_of(services::parse_settings_dialog, "code, materials"),
             texts::translated("Only this dialog: code or materials"));
  dialogs->callback([&] { status = run_dialogs_command(options); });
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
  return texts::translated("found command '{}', must be one of {}", word, names);
}

int run_program(std::vector<std::string> words) {
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  const int argc = static_cast<int>(argv.size());
  texts::use_language(wanted_language(argc, argv.data()));
  CLI::App app(texts::translated("Checks aluminium frames against GB 50429-2007."), "aluframe");
  app.set_version_flag("--version", "aluframe " ALUFRAME_VERSION,
                       texts::translated("Display program version information and exit"));
  app.require_subcommand(1);
  int status = exit_done;
  AnalyseOptions analyse;
  BucklingCommandOptions buckling;
  CheckOptions check;
  CombinationsOptions made;
  ExplainOptions explain;
  InitOptions init;
  ResultsOptions results;
  run::InputOptions validate;
  MembersOptions members;
  PictureCommandOptions picture;
  PointsOptions points;
  ReportOptions report;
  SettingsOptions settings;
  DeflectionsOptions deflections;
  DialogsOptions dialogs;
  SectionOptions section;
  add_check(app, check, status);
  add_analyse(app, analyse, status);
  add_buckling(app, buckling, status);
  add_deflections(app, deflections, status);
  add_made_combinations(app, made, status);
  add_results(app, results, status);
  add_explain(app, explain, status);
  add_init(app, init, status);
  add_validate(app, validate, status);
  add_members(app, members, status);
  add_picture(app, picture, status);
  add_points(app, points, status);
  add_report(app, report, status);
  add_settings(app, settings, status);
  add_dialogs(app, dialogs, status);
  add_section(app, section, status);
  add_language(app);
  for (CLI::App* command : app.get_subcommands({})) add_language(*command);
  translate_parser(app);
  if (const auto unknown = unknown_command(app, argc, argv.data())) {
    print_message(*unknown);
    return exit_input_error;
  }
  try {
    app.parse(argc, argv.data());
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? exit_done : exit_input_error;
  }
  return status;
}

std::string lost_output() {
  return texts::translated("standard output: cannot be written");
}

/// The status, or that of a failure when a command that ended well lost part of its output.
int with_output_checked(int status) {
  const bool failed_already = status == exit_failure || status == exit_input_error;
  if (finish_stdout() || failed_already) return status;
  print_message(lost_output());
  return exit_failure;
}

}  // namespace

int main(int argc, char** argv) {
  platform::prepare_standard_streams();
  try {
    return with_output_checked(run_program(platform::command_line(argc, argv)));
  } catch (const std::exception& error) {
    print_message(std::ferror(stdout) != 0 ? lost_output()
                                           : "aluframe: " + files::error_text(error));
    return exit_failure;
  }
}
