"""What one unit of a model file is in N and mm."""

NEWTONS = {"N": 1.0, "kN": 1e3, "kgf": 9.80665, "tonf": 9806.65, "lbf": 4.4482216152605,
           "kip": 4448.2216152605}
MILLIMETRES = {"m": 1e3, "cm": 10.0, "mm": 1.0, "ft": 304.8, "in": 25.4}


class Units:
    def __init__(self, model: dict) -> None:
        given = model.get("units", {})
        self.force = NEWTONS[given.get("force", "kN")]
        self.length = MILLIMETRES[given.get("length", "m")]
        self.section = MILLIMETRES[given.get("section", "mm")]
        self.moment = self.force * self.length
