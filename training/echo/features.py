"""What the mask sees of three signals at 16 kHz: the same numbers as audio/echo/MaskFeatures makes of them."""

import numpy as np

FRAME = 160
WINDOW = 320
TRANSFORM = 512
BANDS = 22
FEATURES = 5 * BANDS
RATE = 16000
LOWEST, HIGHEST = 60.0, 7600.0
SMOOTHING = 0.8
FLOOR = 2.0 ** -40
SCALE = 1.0 / 65536


def bands() -> np.ndarray:
    """Weights of the bins in each band: triangles whose tops are evenly apart on the scale of equivalent rectangular
    bandwidths (B. R. Glasberg, B. C. J. Moore, 1990), the outer ones flat to the ends, their sum 1 at every bin."""
    scale = lambda hertz: 21.4 * np.log10(1 + 0.00437 * hertz)
    tops = np.linspace(scale(LOWEST), scale(HIGHEST), BANDS)
    at = scale(np.arange(TRANSFORM // 2 + 1) * RATE / TRANSFORM)
    position = np.clip((at - tops[0]) / (tops[1] - tops[0]), 0, BANDS - 1)
    return np.maximum(0, 1 - np.abs(position[None, :] - np.arange(BANDS)[:, None]))


WEIGHTS = bands()
SHAPE = np.sqrt(0.5 - 0.5 * np.cos(2 * np.pi * np.arange(WINDOW) / WINDOW))


def spectra(signal: np.ndarray) -> np.ndarray:
    """One for each frame, of the window that ends with it."""
    padded = np.concatenate([np.zeros(WINDOW - FRAME), signal])
    count = len(signal) // FRAME
    windows = np.lib.stride_tricks.as_strided(padded, (count, WINDOW), (padded.strides[0] * FRAME, padded.strides[0]))
    return np.fft.rfft(windows * SHAPE, TRANSFORM, axis=1)


def energies(spectrum: np.ndarray) -> np.ndarray:
    return SCALE * (np.abs(spectrum) ** 2) @ WEIGHTS.T


def level(energy: np.ndarray) -> np.ndarray:
    """24 dB a unit, 0 at a very soft sound."""
    return (np.log2(energy + FLOOR) + 24) / 8


def smoothed(values: np.ndarray) -> np.ndarray:
    result, state = np.empty_like(values), np.zeros_like(values[0])
    for i, value in enumerate(values):
        state = SMOOTHING * state + (1 - SMOOTHING) * value
        result[i] = state
    return result


def features(linear: np.ndarray, microphone: np.ndarray, suppressed: np.ndarray) -> np.ndarray:
    """Frames by 110: levels of linear output, microphone, suppressed output and echo estimate, and how alike the first
    and the last are, band by band."""
    left, heard, passed = spectra(linear), spectra(microphone), spectra(suppressed)
    echo = heard - left
    cross = smoothed(SCALE * (left * np.conj(echo)) @ WEIGHTS.T)
    both = smoothed(energies(left)) * smoothed(energies(echo))
    alike = np.abs(cross) ** 2 / (both + FLOOR * FLOOR)
    return np.concatenate([level(energies(left)), level(energies(heard)), level(energies(passed)),
                           level(energies(echo)), alike], 1).astype(np.float32)


def targets(linear: np.ndarray, kept: np.ndarray) -> np.ndarray:
    """Gains that would make of the linear output what is to be kept."""
    return np.sqrt(np.minimum(1, (energies(spectra(kept)) + FLOOR) / (energies(spectra(linear)) + FLOOR))).astype(np.float32)


def is_voice(voice: np.ndarray) -> np.ndarray:
    """Whether somebody here talks, by frame: within 25 dB of what is usual for the voice, and above -60 dBFS."""
    power = (voice[:len(voice) // FRAME * FRAME].reshape(-1, FRAME).astype(np.float64) ** 2).mean(1)
    if power.max() == 0:
        return np.zeros(len(power), np.float32)
    usual = power[power > 0.01 * power.max()].mean()
    loud = power > max(usual * 10 ** -2.5, 1e-6)
    # A stop is part of a word.
    return (np.convolve(loud, np.ones(5), "same") > 0).astype(np.float32)
