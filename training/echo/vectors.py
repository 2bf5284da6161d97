"""Writes what the tests hold the program's arithmetic against: made signals, small made-up weights, and what numpy makes
of them. tests/audio/echo/mask holds the result."""

import sys
from pathlib import Path

import numpy as np

import features
import weights

FRAMES = 40


def signals(rng: np.random.Generator) -> np.ndarray:
    """Linear output, microphone, suppressed output: noise that comes and goes, of few values, so that it is exact."""
    length = FRAMES * features.FRAME
    time = np.arange(length) / features.RATE
    near = 0.1 * np.sin(2 * np.pi * 310 * time) * (np.sin(2 * np.pi * 5 * time) > 0.3)
    far = 0.2 * rng.standard_normal(length) * (np.sin(2 * np.pi * 3 * time) > -0.2)
    around = 1e-3 * rng.standard_normal(length)
    made = np.stack([near + 0.1 * far + around, near + far + around, 0.7 * near + 0.01 * far + 0.5 * around])
    return np.round(np.clip(made, -1, 1) * 32767) / 32768


def state(rng: np.random.Generator) -> dict:
    units, outputs = 96, features.BANDS + 1
    of = lambda *shape: (rng.standard_normal(shape) / np.sqrt(shape[-1])).astype("<f2").astype(np.float64)
    return {"entry.weight": of(units, features.FEATURES), "entry.bias": of(units),
            "memory.weight_ih_l0": of(3 * units, units), "memory.bias_ih_l0": of(3 * units),
            "memory.weight_hh_l0": of(3 * units, units), "memory.bias_hh_l0": of(3 * units),
            "exit.weight": of(outputs, units), "exit.bias": of(outputs)}


def main(folder: Path) -> None:
    folder.mkdir(parents=True, exist_ok=True)
    rng = np.random.default_rng(7)
    made, learned = signals(rng), state(rng)
    seen = features.features(*made).astype(np.float64)
    (made * 32768).astype("<i2").tofile(folder / "signals.s16")
    weights.write(folder / "echo-mask.bin", learned)
    seen.astype("<f4").tofile(folder / "features.f32")
    # From the features as they are written: the network's arithmetic alone.
    weights.forward(learned, seen.astype("<f4").astype(np.float64)).astype("<f4").tofile(folder / "outputs.f32")


if __name__ == "__main__":
    main(Path(sys.argv[1]))
