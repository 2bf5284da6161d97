"""Loudspeakers: what the air gets of what the program plays."""

from dataclasses import dataclass

import numpy as np
from scipy.signal import butter, iirpeak, lfilter, resample_poly, sosfilt

RATE = 16000
KINDS = ["clean", "soft clip", "hard clip", "excursion", "limiter", "rattle"]


@dataclass(frozen=True)
class Loudspeakers:
    """Those that there are: how often which kind, how far they are driven, how many are in a box."""

    chances: tuple = (0.35, 0.17, 0.1, 0.14, 0.12, 0.12)
    drives: tuple = (2, 9)
    limits: tuple = (0.1, 0.35)
    boxed: float = 0.85


EVERYDAY = Loudspeakers()
STRAINED = Loudspeakers((0.26, 0.26, 0.13, 0.13, 0.14, 0.08), (3, 16), (0.06, 0.25), 0.65)


def envelope(signal: np.ndarray, attack: float, release: float) -> np.ndarray:
    """Peaks by blocks of 2 ms, that rise and fall in these times."""
    block = RATE // 500
    count = -(-len(signal) // block)
    peaks = np.abs(np.pad(signal, (0, count * block - len(signal)))).reshape(count, block).max(1)
    up, down = 1 - np.exp(-0.002 / attack), 1 - np.exp(-0.002 / release)
    value, values = 0.0, np.empty(count)
    for i, peak in enumerate(peaks):
        value += (up if peak > value else down) * (peak - value)
        values[i] = value
    return np.repeat(values, block)[:len(signal)]


def distorted(signal: np.ndarray, kind: str, rng: np.random.Generator, among: Loudspeakers) -> np.ndarray:
    """`signal` has an active level of -20 dBFS about."""
    if kind == "soft clip":
        drive = rng.uniform(*among.drives)
        return resample_poly(np.tanh(drive * resample_poly(signal, 2, 1)) / drive, 1, 2)
    if kind == "hard clip":
        limit = rng.uniform(*among.limits)
        return resample_poly(np.clip(resample_poly(signal, 2, 1), -limit, limit), 1, 2)
    if kind == "excursion":
        # The cone is stiffer far out, and its motor weaker: what is low shapes what is high.
        excursion = lfilter(*butter(2, rng.uniform(150, 400), fs=RATE), signal)
        excursion = excursion / (np.abs(excursion).max() + 1e-9)
        return signal * (1 - rng.uniform(0.2, 0.6) * excursion ** 2) + rng.uniform(-0.3, 0.3) * signal * excursion
    if kind == "limiter":
        limit = rng.uniform(0.06, 0.2)
        level = envelope(signal, rng.uniform(0.002, 0.02), rng.uniform(0.05, 0.4))
        return signal * np.minimum(1, limit / np.maximum(level, 1e-6))
    if kind == "rattle":
        low = lfilter(*butter(2, 350, fs=RATE), signal)
        strength = np.maximum(np.abs(low) - rng.uniform(0.02, 0.07), 0)
        at = rng.uniform(900, 3500)
        noise = lfilter(*butter(2, [at, at * 1.6], "band", fs=RATE), rng.standard_normal(len(signal)))
        return signal + rng.uniform(0.1, 0.7) * strength * noise
    return signal


def played(signal: np.ndarray, rng: np.random.Generator, among: Loudspeakers = EVERYDAY) -> np.ndarray:
    """Distorted, and by a box that has no bass, loses the highest, and rings here and there."""
    out = distorted(signal, str(rng.choice(KINDS, p=among.chances)), rng, among)
    if rng.random() < among.boxed:
        out = sosfilt(butter(2, rng.uniform(80, 380), "high", fs=RATE, output="sos"), out)
        out = sosfilt(butter(int(rng.integers(1, 4)), rng.uniform(4500, 7900), fs=RATE, output="sos"), out)
        for _ in range(int(rng.integers(0, 4))):
            b, a = iirpeak(rng.uniform(250, 5500), rng.uniform(2, 12), RATE)
            out = out + rng.uniform(-0.6, 1.5) * lfilter(b, a, out)
    return out
