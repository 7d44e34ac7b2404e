"""The structures in examples/, described compactly; tools/make_examples.py writes them out."""

from example_models import dome, footbridge, mullion_transom, platform_roof, portal

# File name in examples/ and the function that describes the structure.
EXAMPLES = {
    "mullion-transom.json": mullion_transom.describe,
    "footbridge.json": footbridge.describe,
    "platform-roof.json": platform_roof.describe,
    "portal-bracket.json": portal.describe,
    "dome.json": dome.describe,
}
