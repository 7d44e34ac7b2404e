#include "apps/desktop/runner.h"

#include <QApplication>
#include <QElapsedTimer>
#include <exception>
#include <utility>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/files/output_guard.h"
#include "aluframe/run/document.h"
#include "aluframe/run/report.h"
#include "aluframe/run/strictness.h"
#include "aluframe/tables/check_summary.h"
#include "aluframe/tables/report_texts.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/message_boxes.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

namespace fs = std::filesystem;
using texts::translatable;

RunEnd failed(std::string text) {
  return {RunEnd::Kind::failed, std::move(text)};
}

/// A box belongs to the window's thread, and the run waits for its end.
int show_box_of_run(const std::string& text, unsigned type) {
  int button = 0;
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [&] { button = show_message_box(text, type); },
      Qt::BlockingQueuedConnection);
  return button;
}

std::optional<std::string> overwriting_problem(const fs::path& model, const fs::path& results) {
  return files::find_overwriting(
      {{translatable("the result file"), results, files::FileKind::results, std::nullopt}},
      {{translatable("the model"), model}});
}

RunEnd end_of(const run::Input& input, const run::CheckResult& result) {
  const services::CheckSummary& summary = result.summary;
  switch (summary.outcome) {
    case services::RunOutcome::failed:
      return failed(texts::translated("the run failed: {}", summary.failure));
    case services::RunOutcome::cancelled:
      return {RunEnd::Kind::cancelled,
              texts::translated("The check was cancelled; earlier results stay as they were.")};
    case services::RunOutcome::nothing_to_check:
      return failed(texts::translated("There is nothing to check."));
    case services::RunOutcome::complete:
      break;
  }
  if (summary.checked_elements == 0)
    return failed(texts::translated("no element could be checked"));
  const bool is_over = run::fails(run::told_by(result), run::Strictness::checks);
  return {is_over ? RunEnd::Kind::over_limit : RunEnd::Kind::done,
          tables::summary_text(input, result)};
}

RunEnd run_check(const fs::path& model, const std::vector<model::Number>& elements,
                 services::ProgressListener& progress,
                 const std::function<void(const std::string&)>& message) {
  std::vector<model::NumberRange> ranges;
  ranges.reserve(elements.size());
  for (const model::Number element : elements) ranges.push_back({element, element});
  run::Selection selection;
  selection.elements = model::NumberRanges(std::move(ranges));
  const auto prepared = run::prepare({.model = model}, selection);
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) return failed(problem->text);
  const auto& input = std::get<run::Input>(prepared);
  const fs::path results = run::result_path_of(model);
  const run::CheckOptions options{.results = results,
                                  .progress = &progress,
                                  .message = message,
                                  .message_box = show_box_of_run,
                                  .objection = [&] { return overwriting_problem(model, results); }};
  return end_of(input, run::check(input, options));
}

/// Ends a document that the user does not want any more.
struct Cancelled {};

RunEnd run_document(const fs::path& model, const fs::path& html, document::DocumentDetail detail,
                    const std::atomic<bool>& is_cancelled) {
  const fs::path results = run::result_path_of(model);
  const auto overwriting = files::find_overwriting(
      {{translatable("the document"), html}},
      {{translatable("the result file"), results}, {translatable("the model"), model}});
  if (overwriting) return failed(*overwriting);
  if (!document::may_be_replaced(html)) {
    return failed(texts::translated(
        "{}: is no calculation document, which would overwrite it; delete it, or choose another "
        "name",
        html.string()));
  }
  const auto gathered =
      run::gather_document({.input = {.model = model}, .results = results, .selection = {}});
  if (const auto* problem = std::get_if<run::Problem>(&gathered)) return failed(problem->text);
  const auto& content = std::get<run::DocumentContent>(gathered);
  try {
    document::publish_document(html, content, results, detail, [&is_cancelled] {
      if (is_cancelled) throw Cancelled();
    });
  } catch (const Cancelled&) {
    return {RunEnd::Kind::cancelled, texts::translated("The document was cancelled.")};
  } catch (const std::exception& error) {
    return failed(
        texts::translated("{}: cannot be written: {}", html.string(), files::error_text(error)));
  }
  return {};
}

struct Report {
  RunEnd end;
  std::string text;
};

Report run_report(const fs::path& model, const ReportUnits& units,
                  const std::function<void(const std::string&)>& message) {
  const fs::path results = run::result_path_of(model);
  const auto prepared = run::prepare_like(results, {.model = model}, {});
  if (const auto* problem = std::get_if<run::Problem>(&prepared))
    return {failed(problem->text), {}};
  const auto& input = std::get<run::Input>(prepared);
  run::ReportOptions options{.results = results,
                             .report = std::nullopt,
                             .force = units.first,
                             .length = units.second,
                             .message = message};
  std::string text;
  options.follow = [&](const services::ReportSummary& report) {
    text = report.readable +
           tables::report_appendix(input.model, report, tables::report_basis(report, results));
  };
  const services::ReportSummary summary = run::report(input, options);
  if (summary.outcome != services::RunOutcome::complete) {
    return {failed(texts::translated("the report failed: {}", summary.failure)), {}};
  }
  return {{}, std::move(text)};
}

/// What the job returns, or that it failed as nobody expected.
template <class Work>
auto guarded(const Work& work) -> decltype(work()) {
  try {
    return work();
  } catch (const std::exception& error) {
    decltype(work()) out{};
    if constexpr (std::is_same_v<decltype(out), RunEnd>) {
      out = failed(files::error_text(error));
    } else {
      out.end = failed(files::error_text(error));
    }
    return out;
  }
}

}  // namespace

/// Hears of the progress on the run's thread and tells it to the window's.
class Runner::Listener : public services::ProgressListener {
 public:
  explicit Listener(Runner& runner) : runner_(runner) {}

  void started(const std::string& text) override {
    Q_EMIT runner_.started(QString::fromStdString(text));
  }
  bool advanced(int done, int total) override {
    // To draw the window for each element of a large frame takes longer than to check it.
    constexpr int pause = 250;  // ms
    if (done == total || !since_told_.isValid() || since_told_.elapsed() >= pause) {
      since_told_.start();
      Q_EMIT runner_.progressed(done, total);
    }
    return runner_.is_cancelled_;
  }
  void ended() override {}

 private:
  Runner& runner_;
  QElapsedTimer since_told_;
};

Runner::Runner(Workspace& workspace) : workspace_(workspace) {}

Runner::~Runner() {
  if (!thread_) return;
  is_ending_ = true;
  cancel();
  // A message box of the run waits for this thread, and the end of the run may come meanwhile.
  while (thread_ && !thread_->wait(10)) QCoreApplication::processEvents();
}

void Runner::cancel() {
  is_cancelled_ = true;
}

std::function<void(const std::string&)> Runner::message() {
  return [this](const std::string& text) {
    QMetaObject::invokeMethod(this, [this, text] { workspace_.tell(text); }, Qt::QueuedConnection);
  };
}

void Runner::start(const QString& text, Cancelling cancelling, Job job) {
  if (is_running() || workspace_.is_busy()) return;
  can_be_cancelled_ = cancelling == Cancelling::possible;
  is_cancelled_ = false;
  thread_.reset(QThread::create([this, job = std::move(job)] {
    const auto end = job();
    QMetaObject::invokeMethod(this, [this, end] { finish(end); }, Qt::QueuedConnection);
  }));
  // Analysis of large frames goes deeper than a thread's usual stack.
  constexpr unsigned stack = 64U << 20U;
  thread_->setStackSize(stack);
  workspace_.set_busy(true);
  Q_EMIT started(text);
  thread_->start();
}

void Runner::finish(const std::function<void()>& end) {
  thread_->wait();
  thread_.reset();
  if (is_ending_) return;
  workspace_.set_busy(false);
  end();
}

void Runner::check(std::vector<model::Number> elements) {
  const fs::path model = workspace_.document()->path();
  start(ui_text(translatable("Checking...")), Cancelling::possible,
        [this, model, elements = std::move(elements)] {
          Listener listener(*this);
          const RunEnd end =
              guarded([&] { return run_check(model, elements, listener, message()); });
          return [this, end] {
            workspace_.refresh_results();
            workspace_.tell(end.text);
            Q_EMIT check_ended(end);
          };
        });
}

void Runner::make_report(const ReportUnits& units) {
  const fs::path model = workspace_.document()->path();
  start(ui_text(translatable("Making the report...")), Cancelling::impossible,
        [this, model, units] {
          const Report report = guarded([&] { return run_report(model, units, message()); });
          return [this, report, model] {
            // It checks what has no results yet.
            workspace_.refresh_results();
            if (!report.end.text.empty()) workspace_.tell(report.end.text);
            Q_EMIT report_ended(report.end, QString::fromStdString(report.text),
                                QString::fromStdString(model.string()));
          };
        });
}

void Runner::write_document(const fs::path& html, document::DocumentDetail detail) {
  const fs::path model = workspace_.document()->path();
  start(ui_text(translatable("Writing the document...")), Cancelling::possible,
        [this, model, html, detail] {
          const RunEnd end =
              guarded([&] { return run_document(model, html, detail, is_cancelled_); });
          return [this, end, html] {
            if (!end.text.empty()) workspace_.tell(end.text);
            Q_EMIT document_ended(end, QString::fromStdString(html.string()));
          };
        });
}

}  // namespace aluframe::desktop
