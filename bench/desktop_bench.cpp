// The desktop program on a screen: how long a large model takes to open, beside reading it alone,
// how often a second the frame is drawn while it turns, and how long a check takes beside the
// window.
//
//   xvfb-run -a bench_desktop MODEL

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <iostream>

#include "aluframe/run/check.h"
#include "aluframe/run/input.h"
#include "aluframe/run/results.h"
#include "apps/desktop/frame_view.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/model_document.h"

namespace {

using namespace aluframe;

std::filesystem::path& model_file() {
  static std::filesystem::path file;
  return file;
}

void ReadModel(benchmark::State& state) {
  for (auto _ : state) {
    auto input = run::read_input({.model = model_file()});
    benchmark::DoNotOptimize(input);
  }
}
BENCHMARK(ReadModel)->Unit(benchmark::kMillisecond);

void OpenModel(benchmark::State& state) {
  for (auto _ : state) {
    desktop::MainWindow window;
    window.open(model_file());
    window.show();
    benchmark::DoNotOptimize(window.view().picture());
  }
}
BENCHMARK(OpenModel)->Unit(benchmark::kMillisecond);

/// A right drag, a few pixels at a time, and the picture of each.
void turn(benchmark::State& state, bool is_solid) {
  desktop::MainWindow window;
  window.open(model_file());
  window.display().change([&](desktop::DisplayState& display) { display.solid = is_solid; });
  window.show();
  desktop::FrameView& view = window.view();
  view.resize(1280, 800);
  QPointF at(400, 400);
  const auto send = [&](QEvent::Type type) {
    QMouseEvent event(type, at, view.mapToGlobal(at), Qt::RightButton, Qt::RightButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
  };
  send(QEvent::MouseButtonPress);
  for (auto _ : state) {
    at += QPointF(3, 1);
    send(QEvent::MouseMove);
    benchmark::DoNotOptimize(view.picture());
  }
  send(QEvent::MouseButtonRelease);
  state.counters["pictures"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
void TurnLines(benchmark::State& state) {
  turn(state, false);
}
BENCHMARK(TurnLines)->Unit(benchmark::kMillisecond)->UseRealTime();
void TurnSolid(benchmark::State& state) {
  turn(state, true);
}
BENCHMARK(TurnSolid)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The check of `aluframe check`, without a window.
void CheckAlone(benchmark::State& state) {
  for (auto _ : state) {
    const auto prepared = run::prepare({.model = model_file()});
    run::CheckOptions options;
    options.results = run::result_path_of(model_file());
    auto result = run::check(std::get<run::Input>(prepared), options);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(CheckAlone)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same beside the window, until its results are shown.
void CheckInWindow(benchmark::State& state) {
  desktop::MainWindow window;
  window.open(model_file());
  window.show();
  for (auto _ : state) {
    window.check(false);
    while (window.runner().is_running()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}
BENCHMARK(CheckInWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const QApplication application(argc, argv);
  if (argc != 2) {
    std::cerr << "usage: bench_desktop MODEL\n";
    return 1;
  }
  model_file() = argv[1];
  if (!desktop::FrameView::has_opengl()) std::cerr << "without OpenGL: drawn with a painter\n";
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
