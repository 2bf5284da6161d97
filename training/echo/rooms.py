"""Rooms: impulse responses from a source to the microphone.

Image sources (J. B. Allen, D. A. Berkley, Image method for efficiently simulating small-room acoustics, JASA 65, 1979)
for the first 120 ms; behind it noise that falls off as the room does, as loud where it begins as the images are there.
Above 2 kHz a room swallows more than below. Images all have one sign, so that what is below every voice adds up where it
would not in a room: a high pass takes it out, as Allen and Berkley do and as microphones do.
"""

import numpy as np
from scipy.signal import butter, fftconvolve, firwin, lfilter, resample_poly

RATE = 16000
SPEED = 343.0
EARLY = 0.12
OVERSAMPLED = 4
HIGH_PASS = butter(2, 60, "high", fs=RATE)


class Room:
    def __init__(self, rng: np.random.Generator, reverberation: float | None = None):
        self.size = np.array([rng.uniform(2.4, 7), rng.uniform(2.2, 5.5), rng.uniform(2.2, 3.2)])
        self.reverberation = reverberation or float(np.exp(rng.uniform(np.log(0.15), np.log(1.1))))
        self.high = self.reverberation * rng.uniform(0.55, 1)
        self.rng = rng
        self.microphone = self.place()

    def place(self) -> np.ndarray:
        return self.rng.uniform(0.3, self.size - 0.3)

    def near(self, point: np.ndarray, distance: float) -> np.ndarray:
        """A place at about this distance, within the walls."""
        direction = self.rng.standard_normal(3) * [1, 1, 0.4]
        return np.clip(point + distance * direction / np.linalg.norm(direction), 0.15, self.size - 0.15)

    def _absorption(self, reverberation: float) -> float:
        """Eyring's: the share of the energy that the walls keep."""
        volume = float(np.prod(self.size))
        surface = 2 * float(self.size[0] * self.size[1] + self.size[1] * self.size[2] + self.size[0] * self.size[2])
        return float(np.clip(np.exp(-0.161 * volume / (surface * reverberation)), 0.01, 0.98))

    def response(self, source: np.ndarray) -> np.ndarray:
        length = int(EARLY * RATE)
        reach = EARLY * SPEED
        counts = np.ceil(reach / (2 * self.size)).astype(int)
        axes = []
        for axis in range(3):
            n = np.arange(-counts[axis], counts[axis] + 1)
            image = np.concatenate([2 * n * self.size[axis] + source[axis], 2 * n * self.size[axis] - source[axis]])
            walls = np.concatenate([np.abs(2 * n), np.abs(2 * n - 1)])
            axes.append((image - self.microphone[axis], walls))
        (x, a), (y, b), (z, c) = axes
        distance = np.sqrt(x[:, None, None] ** 2 + y[None, :, None] ** 2 + z[None, None, :] ** 2)
        order = a[:, None, None] + b[None, :, None] + c[None, None, :]
        heard = distance < reach
        distance, order = distance[heard], order[heard]
        at = np.round(distance / SPEED * RATE * OVERSAMPLED).astype(int)
        parts = []
        for reverberation in (self.reverberation, self.high):
            kept = self._absorption(reverberation)
            taps = np.bincount(at, kept ** (order / 2) / np.maximum(distance, 0.1), length * OVERSAMPLED)
            early = resample_poly(taps[:length * OVERSAMPLED], 1, OVERSAMPLED)
            parts.append(self._with_tail(early, reverberation))
        low = firwin(63, 2000, fs=RATE)
        size = max(map(len, parts))
        first, second = (np.pad(part, (0, size - len(part))) for part in parts)
        delayed = np.concatenate([np.zeros(31), second])[:size]
        whole = fftconvolve(first, low)[:size] + delayed - fftconvolve(second, low)[:size]
        return lfilter(*HIGH_PASS, whole).astype(np.float32)

    def _with_tail(self, early: np.ndarray, reverberation: float) -> np.ndarray:
        joint = len(early) * 2 // 3
        fall = 3 * np.log(10) / (reverberation * RATE)
        length = int(min(1.2 * reverberation, 1.0) * RATE)
        if length <= len(early):
            return early
        time = np.arange(length - joint)
        level = np.sqrt(np.mean(early[joint:] ** 2 * np.exp(2 * fall * np.arange(len(early) - joint))))
        whole = np.concatenate([early[:joint], np.zeros(length - joint)])
        tail = level * np.exp(-fall * time) * self.rng.standard_normal(len(time))
        fade = np.clip(np.arange(len(time)) / (len(early) - joint), 0, 1)
        whole[joint:] += np.sqrt(fade) * tail
        whole[joint:len(early)] += np.sqrt(1 - fade[:len(early) - joint]) * early[joint:]
        return whole


class DiffuseRoom(Room):
    """A room by its statistics alone: the direct sound, and behind it at once noise that falls off. How loud that is
    follows from the critical distance (H. Kuttruff, Room Acoustics, 5th ed., 5.1)."""

    def response(self, source: np.ndarray) -> np.ndarray:
        distance = max(float(np.linalg.norm(source - self.microphone)), 0.1)
        critical = 0.057 * np.sqrt(float(np.prod(self.size)) / self.reverberation)
        time = np.arange(int(min(self.reverberation, 1.0) * RATE)) / RATE
        begins = int(self.rng.uniform(0.001, 0.006) * RATE)
        tail = self.rng.standard_normal(len(time)) * np.exp(-3 * np.log(10) * time / self.reverberation)
        tail[:begins] = 0
        response = tail * (1 / critical / np.sqrt(np.sum(tail ** 2)))
        response[0] = 1 / distance
        return response.astype(np.float32)


def heard(signal: np.ndarray, responses: list, shares: np.ndarray | None = None) -> np.ndarray:
    """The signal by one response, or by two between which it goes: `shares` is the second one's, for each sample."""
    first = fftconvolve(signal, responses[0])[:len(signal)]
    if len(responses) == 1:
        return first.astype(np.float32)
    second = fftconvolve(signal, responses[1])[:len(signal)]
    return (first + shares * (second - first)).astype(np.float32)


def movement(rng: np.random.Generator, length: int) -> np.ndarray:
    """Shares for `heard`: somebody goes there and back every few seconds, and stands still in between."""
    points, values, at, value = [0], [0.0], 0.0, 0.0
    while at < length:
        at += rng.uniform(0.5, 6) * RATE
        points.append(at)
        values.append(value)
        at += rng.uniform(0.3, 2.5) * RATE
        value = rng.uniform(0, 1)
        points.append(at)
        values.append(value)
    return np.interp(np.arange(length), points, values).astype(np.float32)
