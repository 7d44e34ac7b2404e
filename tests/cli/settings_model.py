"""A model whose settings and materials the tests of `aluframe settings` change."""

# A layout that no program would write: every byte of it must outlive a change.
MODEL = """\
{
\t"format": "aluframe-model",  "version": 1,
\t"title": "Pipe \\"settings\\": {}",
\t"project" : {"engineer": "A. B.", "revision":"C" },
\t"units": {"length": "m", "force": "kN"},
\t"settings": { "code": "GB50429-2007",
\t\t"gamma_re_strength": 0.8 , "seismic":true },
\t"materials": [ {"number": 3, "alloy": "6061-T6"},
\t\t{ "name": "Extrusion", "number" : 1, "grade": "X1", "f02_thin": 170,"fu": 215.0 }],
\t"sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 10}}],
\t"nodes": [{"number": 1, "x": 0.0, "y": 0, "z": 3e0}, {"number": 2, "x": 4, "y": 0, "z": 3}],
\t"elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 3}],
\t"load_cases": [{"number": 1, "kind": "seismic_static"}],
\t"combinations": [{"number": 1, "terms": [{"case": 1}]}],
\t"forces": [{"element": 1, "case": 1, "values": [[20, 0, 0, 0, 0, 0], [20, 0, 0, 0, 10, 0]]}]
}
"""
OLD_SETTINGS = '{ "code": "GB50429-2007",\n\t\t"gamma_re_strength": 0.8 , "seismic":true }'
OLD_EXTRUSION = '{ "name": "Extrusion", "number" : 1, "grade": "X1", "f02_thin": 170,"fu": 215.0 }'


def text_of(frame):
    return (frame.folder / "frame.json").read_bytes().decode("utf-8")


def change(frame, *arguments, status=0):
    return frame("settings", "frame.json", *arguments, status=status)
