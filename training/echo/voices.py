"""The voices, 16 kHz: recorded people from packages, and synthetic speakers in several languages.

A voice is a folder's file NAME.npz with its utterances one behind the other (`samples`, 16-bit) and where each ends
(`ends`). Half of the utterances at least are sentences; the others are words.
"""

import subprocess
import zlib
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import numpy as np

import packages
from sentences import SENTENCES

RATE = 16000
ESPEAK = [("en-us", "m3", 45, 165), ("en-us", "f1", 55, 160), ("en-us", "m7", 35, 175), ("en-us", "f5", 60, 150),
          ("en-gb", "m1", 40, 150), ("en-gb", "f2", 50, 170), ("pt-br", "", 50, 160), ("pt-br", "f2", 55, 150),
          ("pt-br", "m5", 40, 170), ("es", "m2", 45, 160), ("es", "f4", 60, 165), ("fr", "", 50, 160),
          ("fr", "f3", 50, 150), ("de", "m4", 35, 155), ("de", "f1", 55, 165), ("it", "m6", 50, 165),
          ("pl", "f2", 50, 155), ("ru", "m1", 45, 155), ("cmn", "f4", 50, 150)]
FLITE = [("awb", 1.0, None), ("rms", 1.0, None), ("slt", 1.0, None), ("kal16", 1.1, None), ("rms", 1.15, 130),
         ("slt", 0.9, 200)]


def decoded(command: list) -> np.ndarray:
    """Samples that a command writes: whatever is decoded goes through ffmpeg, mono at 16 kHz."""
    data = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    return np.frombuffer(data, np.int16)


def from_file(path: Path) -> np.ndarray:
    form = ["-f", "g722"] if path.suffix == ".g722" else []
    return decoded(["ffmpeg", "-v", "quiet", *form, "-i", str(path), "-ac", "1", "-ar", str(RATE), "-f", "s16le", "-"])


def from_speech(command: list) -> np.ndarray:
    wav = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    back = subprocess.run(["ffmpeg", "-v", "quiet", "-i", "-", "-ac", "1", "-ar", str(RATE), "-f", "s16le", "-"],
                          input=wav, stdout=subprocess.PIPE, check=True).stdout
    return np.frombuffer(back, np.int16)


def trimmed(samples: np.ndarray) -> np.ndarray:
    """Without the silence before and behind; a second of full scale would be what nobody says."""
    loud = np.flatnonzero(np.abs(samples.astype(np.int32)) > 0.02 * max(int(np.abs(samples.astype(np.int32)).max()), 1))
    return samples[max(loud[0] - 320, 0):loud[-1] + 1600] if len(loud) else samples[:0]


def chosen(paths: list, count: int, name: str) -> list:
    """So many of them, by chance, the longest files first so that sentences are among them."""
    rng = np.random.default_rng(zlib.crc32(name.encode()))
    by_size = sorted(sorted(paths), key=lambda path: path.stat().st_size, reverse=True)
    half = by_size[:count // 2]
    rest = by_size[count // 2:]
    return half + [rest[i] for i in rng.permutation(len(rest))[:count - len(half)]]


def sources(folder: Path) -> dict:
    """Each recorded voice's files."""
    found = {}
    for language, name in packages.PROMPTS.items():
        found[f"prompts-{language}"] = [path for path in (folder / name).rglob("*.g722")
                                        if not any(word in str(path) for word in ("silence", "tone", "beep", "monkeys"))]
    for language, name in packages.DIALOGUES.items():
        files = list((folder / name).rglob("*.ogg"))
        for fish in "mv":
            found[f"dialogues-{language}-{fish}"] = [path for path in files if f"-{fish}-" in path.name]
    for place in sorted((folder / packages.WORDS / "usr/share/ktuberling/sounds").iterdir()):
        if place.is_dir():
            found[f"words-{place.name}"] = [path for path in place.iterdir() if path.suffix in (".ogg", ".wav", ".opus")]
    found["held-librivox"] = list((folder / packages.HELD_OUT["librivox"]).rglob("librivox/*.wav"))
    for name, package in packages.MUSIC.items():
        found[f"music-{name}"] = [path for path in (folder / package).rglob("*")
                                  if path.suffix in (".g722", ".ogg", ".mp3", ".flac", ".fla")]
    found["sounds"] = [path for path in (folder / packages.SOUNDS).rglob("*.ogg")
                       if "_desc" not in path.name and not any(word in str(path) for word in
                                                               ("math", "alphabets", "seasonal", "faces", "roadsigns"))]
    return {name: files for name, files in found.items() if len(files) >= 5}


def save(folder: Path, name: str, utterances: list) -> None:
    utterances = [one for one in utterances if len(one) > RATE // 8]
    if not utterances:
        raise SystemExit(f"no voice {name}")
    np.savez(folder / f"{name}.npz", samples=np.concatenate(utterances), ends=np.cumsum([len(one) for one in utterances]))


def make(folder: Path, unpacked: Path, per_voice: int) -> None:
    """Makes what is not there yet."""
    folder.mkdir(parents=True, exist_ok=True)
    with ThreadPoolExecutor(2) as pool:
        for name, files in sources(unpacked).items():
            if (folder / f"{name}.npz").exists():
                continue
            count = 12 if name.startswith("music") else per_voice
            save(folder, name, [trimmed(one)[:60 * RATE] for one in pool.map(from_file, chosen(files, count, name))])
        for language, variant, pitch, speed in ESPEAK:
            name = f"espeak-{language}-{variant}"
            voice = f"{language}+{variant}" if variant else language
            say = lambda text: trimmed(from_speech(
                ["espeak-ng", "-v", voice, "-p", str(pitch), "-s", str(speed), "--stdout", text]))
            if not (folder / f"{name}.npz").exists():
                save(folder, name, list(pool.map(say, SENTENCES[language])))
        for voice, stretch, pitch in FLITE:
            name = f"flite-{voice}-{stretch}"
            tune = ["--setf", f"duration_stretch={stretch}", *(["--setf", f"int_f0_target_mean={pitch}"] if pitch else [])]
            say = lambda text: trimmed(from_speech(["flite", "-voice", voice, *tune, "-t", text, "-o", "/dev/stdout"]))
            if not (folder / f"{name}.npz").exists():
                save(folder, name, list(pool.map(say, SENTENCES["en-us"] + SENTENCES["en-gb"])))


class Voices:
    """All of them, read once: `training`, `held` out, `music` and `sounds`, each by name a list of utterances."""

    def __init__(self, folder: Path):
        self.training, self.held, self.music, self.sounds = {}, {}, {}, {}
        for path in sorted(folder.glob("*.npz")):
            with np.load(path) as file:
                utterances = np.split(file["samples"], file["ends"][:-1])
            kind = path.stem.split("-")[0]
            where = {"held": self.held, "music": self.music, "sounds": self.sounds}.get(kind, self.training)
            where[path.stem] = utterances
        # Nobody of these is trained with, that what is measured be of voices that were never heard.
        for name in ("espeak-en-gb-m1", "espeak-pt-br-f2", "flite-rms-1.15", "prompts-it", "words-lt"):
            if name in self.training:
                self.held[name] = self.training.pop(name)
