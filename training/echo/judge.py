"""How well the gate and the mask do on scenes with voices, rooms and loudspeakers that were not trained with."""

from multiprocessing import Pool
from pathlib import Path

import numpy as np

import scenes
from collect import recorded
from voices import Voices

LATER = 79  # By so many samples is what the program hears later than the linear output, both in their low band.
FRAME = 320


def power(signal: np.ndarray) -> np.ndarray:
    return (signal[:len(signal) // FRAME * FRAME].reshape(-1, FRAME) ** 2).mean(1)


class Judge:
    current: "Judge"

    def __init__(self, voices: Path, recorder: Path, mask: Path):
        self.voices, self.recorder, self.mask = Voices(voices), recorder, mask

    def judge(self, seed: int) -> tuple:
        channels, facts = scenes.make(seed, self.voices, True)
        linear, microphone, _, kept, voice, *heard = recorded(self.recorder, channels, self.mask)
        said, echo = power(voice), power(microphone - kept)
        loud = said[said > 0.01 * said.max()].mean() if said.max() > 0 else 1
        is_far = echo > 1e-6
        strong = (said > loud / 4) & is_far
        quiet = (np.convolve(said > 1e-8, np.ones(25), "same") == 0) & is_far
        quiet[:150] = False  # Three seconds to learn the room.
        figures = []
        for signal in heard:
            out = power(np.concatenate([signal[LATER:], np.zeros(LATER)]))
            lost = 100 * (out[strong] < 0.1 * said[strong]).mean() if strong.sum() > 20 else np.nan
            erle = 10 * np.log10(echo[quiet].mean() / max(out[quiet].mean(), 1e-12)) if quiet.sum() > 20 else np.nan
            loudest = (out[quiet] > 10 ** -3.4).mean() * 100 if quiet.sum() > 20 else np.nan
            figures.append((lost, erle, loudest))
        return facts, figures


def begin(*arguments) -> None:
    Judge.current = Judge(*arguments)


def one(seed: int) -> tuple:
    return Judge.current.judge(seed)


def judge(voices: Path, recorder: Path, mask: Path, first: int, count: int) -> None:
    """Writes a table; the scenes are others than those by which the training chose."""
    with Pool(2, begin, (voices, recorder, mask)) as pool:
        results = pool.map(one, range(first, first + count))
    rows = {"all": lambda facts: True,
            "near end 6 to 12 dB louder": lambda facts: facts["ratio"] > 6,
            "within 6 dB": lambda facts: abs(facts["ratio"]) <= 6,
            "6 to 12 dB softer": lambda facts: facts["ratio"] < -6,
            "reverberation over 0.5 s": lambda facts: facts["reverberation"] > 0.5,
            "clocks apart": lambda facts: facts["ppm"] != 0}
    print("| | scenes | gate: lost %, median / worst | ERLE dB, mean / worst | above -34 dBFS % | mask: lost % | ERLE dB "
          "| above -34 dBFS % |\n|---|---|---|---|---|---|---|---|")
    for name, chosen in rows.items():
        figures = np.array([figures for facts, figures in results if chosen(facts)])
        cells = []
        for way in range(2):
            lost, erle, loudest = figures[:, way].T
            cells += [f"{np.nanmedian(lost):.1f} / {np.nanmax(lost):.1f}", f"{np.nanmean(erle):.1f} / {np.nanmin(erle):.1f}",
                      f"{np.nanmean(loudest):.1f}"]
        print(f"| {name} | {len(figures)} | " + " | ".join(cells) + " |")
