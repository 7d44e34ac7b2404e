#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <memory>

namespace aluframe::desktop {

/// Works beside the window's thread, so that the window stays fast. Only the last of what is asked
/// for counts: what it replaces, or what is left when the job is destroyed, ends unheard.
///
///     job.start([input] {
///       auto lines = compute(input);                       // on a thread of its own
///       return [this, lines] { show(lines); };             // on the window's thread
///     });
class BackgroundJob : public QObject {
 public:
  using Done = std::function<void()>;
  /// Keeps or copies all that it works on; throws nothing.
  using Work = std::function<Done()>;

  BackgroundJob();
  ~BackgroundJob() override;

  void start(Work work);
  /// What is going on is not heard of any more.
  void drop();
  bool is_running() const { return is_wanted_; }

 private:
  struct Mailbox;

  void run(Work work);
  void finish(std::uint64_t turn, const Done& done);

  std::shared_ptr<Mailbox> mailbox_;
  Work next_;                ///< begins when what is going on has ended
  std::uint64_t turn_ = 0;   ///< of what was last asked for
  bool is_working_ = false;  ///< a thread is at work, wanted or not
  bool is_wanted_ = false;
};

}  // namespace aluframe::desktop
