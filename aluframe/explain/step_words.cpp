#include "aluframe/explain/step_words.h"

#include "aluframe/texts/sentence.h"

namespace aluframe::explain {

StepWords words_of(const Info& info) {
  return {texts::sentence_in_words(info.quantity), texts::sentence_in_words(info.clause),
          texts::sentence_in_words(info.why)};
}

}  // namespace aluframe::explain
