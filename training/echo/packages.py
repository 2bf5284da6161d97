"""The Debian packages whose recordings are trained with: fetched as they are published, unpacked, never installed."""

import shutil
import subprocess
from pathlib import Path

# Recorded people. The prompts are 7 kHz wide; of the game's fishes the small one is a woman and the large one a man.
PROMPTS = {"en": "asterisk-core-sounds-en-g722", "es": "asterisk-core-sounds-es-g722",
           "fr": "asterisk-core-sounds-fr-g722", "it": "asterisk-core-sounds-it-g722",
           "ru": "asterisk-core-sounds-ru-g722"}
DIALOGUES = {"cs": "fillets-ng-data-cs", "nl": "fillets-ng-data-nl"}
WORDS = "ktuberling-data"
# Recorded people who are kept for judging, and never trained with.
HELD_OUT = {"librivox": "pocketsphinx-testdata"}
MUSIC = {"moh": "asterisk-moh-opsound-g722", "drascula": "drascula-music"}
SOUNDS = "tuxpaint-stamps-default"

ALL = [*PROMPTS.values(), *DIALOGUES.values(), WORDS, *HELD_OUT.values(), *MUSIC.values(), SOUNDS]


def fetch(folder: Path) -> None:
    """Brings what is not in `folder` yet, each package in a folder of its name."""
    for name in ALL:
        place = folder / name
        if place.exists():
            continue
        print(f"fetching {name}", flush=True)
        arriving = folder / f"{name}.arriving"
        shutil.rmtree(arriving, ignore_errors=True)
        arriving.mkdir(parents=True)
        subprocess.run(["apt-get", "download", "-qq", name], cwd=arriving, check=True)
        archive = next(arriving.glob("*.deb"))
        subprocess.run(["dpkg-deb", "-x", archive.name, "."], cwd=arriving, check=True)
        archive.unlink()
        arriving.rename(place)
