"""The states of envelopes as a model has them when they are typed as combinations, worked out from the rules
in docs/model-file.md alone."""

import copy

READABLE = 1000  # state 3 of combination 7 is 7003
EARTHQUAKES = {"seismic_static", "response_spectrum", "eccentric_spectrum"}


class TypedStates:
    def __init__(self, model):
        self.combinations = {entry["number"]: entry for entry in model["combinations"]}
        self.cases = {case["number"]: case for case in model["load_cases"]}
        self.numbers = {}  # by envelope and name of the state, as results have them
        self.model = copy.deepcopy(model)
        self.model["combinations"] = []
        self._known = {self._key(entry, self.sums(entry)[0]): number
                       for number, entry in reversed(self.combinations.items())
                       if self._is_design(entry) and not self._has_envelope(entry)}
        for entry in self.combinations.values():
            self._add(entry)

    def sums(self, entry):
        """Factor by load case of every state, different ones and equal ones."""
        if entry.get("kind") == "envelope":
            return [sum_ for term in entry["terms"] for sum_ in self._of_term(term)]
        sums = [{}]
        for term in entry["terms"]:
            if term.get("factor", 1.0) != 0:
                sums = [_added(sum_, part) for sum_ in sums for part in self._of_term(term)]
        return sums

    def _of_term(self, term):
        factor = term.get("factor", 1.0)
        if factor == 0:
            return [{}]
        parts = [{term["case"]: 1.0}] if "case" in term else self.sums(self.combinations[term["combination"]])
        return [{case: factor * value for case, value in part.items()} for part in parts]

    def _add(self, entry):
        if not self._is_design(entry) or not self._has_envelope(entry):
            self.model["combinations"].append(entry)
            return
        self.model["combinations"].append({**entry, "design": False})
        places = {}
        for sum_ in self.sums(entry):
            key = self._key(entry, sum_)
            place = places.setdefault(key, len(places) + 1)
            if key not in self._known:
                self._known[key] = READABLE * entry["number"] + place
                self.model["combinations"].append(self._typed(entry, sum_, self._known[key]))

    def _typed(self, entry, sum_, number):
        name = (entry["name"] + ": " if entry.get("name") else "") + self._text(sum_)
        self.numbers[entry["number"], name] = number
        return {"number": number, "name": f"{number} = {entry['number']} {name}",
                "seismic": entry.get("seismic", False),
                "terms": [{"case": case, "factor": factor} for case, factor in sum_.items() if factor]
                or [{"case": next(iter(self.cases)), "factor": 0.0}]}

    def _text(self, sum_):
        text = ""
        for case, factor in sum_.items():
            if factor:
                value = "" if abs(factor) == 1 else f"{abs(factor):.6g}"
                text += ("-" if factor < 0 else "+" if text else "") + value + self.cases[case]["name"]
        return text or "no load"

    def _key(self, entry, sum_):
        seismic = entry.get("seismic", False) or any(
            factor and self.cases[case].get("kind") in EARTHQUAKES for case, factor in sum_.items())
        return frozenset((case, f"{factor:.11e}") for case, factor in sum_.items() if factor), seismic

    @staticmethod
    def _is_design(entry):
        return entry.get("design", True)

    def _has_envelope(self, entry):
        return entry.get("kind") == "envelope" or any(
            self._has_envelope(self.combinations[term["combination"]])
            for term in entry["terms"] if "combination" in term and term.get("factor", 1.0) != 0)


def _added(sum_, part):
    out = dict(sum_)
    for case, value in part.items():
        out[case] = out.get(case, 0.0) + value
    return out
