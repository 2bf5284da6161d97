"""Makes scenes, takes them through the program's canceller, and keeps what the mask would see of them."""

import subprocess
import tempfile
from multiprocessing import Pool
from pathlib import Path

import numpy as np

import features
import scenes
from voices import Voices


def recorded(recorder: Path, channels: np.ndarray, *masks: Path) -> np.ndarray:
    """Linear output, microphone, suppressed output, what is to be kept, and voice, at 16 kHz; with the folder of a mask also
    what the program hears without that and with it."""
    with tempfile.TemporaryDirectory() as folder:
        given, made = Path(folder, "in"), Path(folder, "out")
        channels.tofile(given)
        subprocess.run([recorder, *masks], input=f"{given} {made}\n".encode(), check=True)
        return np.fromfile(made, np.float32).reshape(-1, 7 if masks else 5).T.astype(np.float64)


class Collector:
    """Of each process its own."""

    current: "Collector"

    def __init__(self, folder: Path, voices: Path, recorder: Path):
        self.folder, self.voices, self.recorder = folder, Voices(voices), recorder

    def collect(self, purpose: str, kind: str, seed: int) -> None:
        out = self.folder / f"{purpose}-{kind}-{seed:04}.npz"
        if out.exists():
            return
        channels, _ = scenes.make(seed, self.voices, purpose == "held", scenes.KINDS[kind])
        linear, microphone, suppressed, kept, voice = recorded(self.recorder, channels)
        arriving = out.with_suffix(".arriving")
        with open(arriving, "wb") as file:
            np.savez(file, features=features.features(linear, microphone, suppressed).astype(np.float16),
                     gains=features.targets(linear, kept).astype(np.float16),
                     voice=features.is_voice(voice).astype(np.float16))
        arriving.rename(out)


def begin(*arguments) -> None:
    Collector.current = Collector(*arguments)


def one(task: tuple) -> None:
    Collector.current.collect(*task)


def collect(folder: Path, voices: Path, recorder: Path, training: dict, held: int) -> None:
    """So many scenes of each kind to train with, and to judge by, as far as they are not there."""
    folder.mkdir(parents=True, exist_ok=True)
    tasks = [("held", kind, seed) for kind in training for seed in range(held)]
    tasks += [("training", kind, seed) for kind, count in training.items() for seed in range(count)]
    with Pool(2, begin, (folder, voices, recorder)) as pool:
        for count, _ in enumerate(pool.imap_unordered(one, tasks), 1):
            if count % 20 == 0:
                print(f"{count} of {len(tasks)} scenes", flush=True)
