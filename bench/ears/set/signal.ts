// Samples at 16 kHz between -1 and 1: their levels, and noise that is the same on every machine.

export const rate = 16_000;
const frame = rate / 50;

export type Signal = Float32Array<ArrayBuffer>;

export const decibels = (power: number): number => 10 * Math.log10(Math.max(power, 1e-12));
export const seconds = (count: number): number => Math.round(count * rate);

export function silence(count: number): Signal {
    return new Float32Array(Math.round(count));
}

export function joined(parts: Signal[]): Signal {
    const whole = silence(parts.reduce((sum, { length }) => sum + length, 0));
    let at = 0;
    for (const part of parts) {
        whole.set(part, at);
        at += part.length;
    }
    return whole;
}

export function scaled(signal: Signal, dB: number): Signal {
    return signal.map((sample) => sample * 10 ** (dB / 20));
}

/** The second one is repeated, or cut, to the length of the first. */
export function mixed(signal: Signal, other: Signal): Signal {
    return signal.map((sample, index) => sample + other[index % other.length]!);
}

/** The level of each 20 ms. */
function levels(signal: Signal): number[] {
    return Array.from({ length: Math.ceil(signal.length / frame) }, (_, index) => {
        const part = signal.subarray(index * frame, (index + 1) * frame);
        return decibels(part.reduce((sum, sample) => sum + sample * sample, 0) / part.length);
    });
}

/** The level where there is sound: the mean power of the frames that are at most 25 dB below the loudest, dBFS. */
export function activeLevel(signal: Signal): number {
    const all = levels(signal);
    const loudest = all.reduce((most, level) => Math.max(most, level), -120);
    const active = all.filter((level) => level > loudest - 25);
    return decibels(active.reduce((sum, level) => sum + 10 ** (level / 10), 0) / Math.max(1, active.length));
}

/** Brought to an active level; peaks beyond full scale are cut off. */
export function atLevel(signal: Signal, dBFS: number): Signal {
    return scaled(signal, dBFS - activeLevel(signal)).map((sample) => Math.max(-1, Math.min(1, sample)));
}

/** Where the sound of a recording begins and ends, in samples: the frames within 30 dB of its active level. */
export function extent(signal: Signal): [number, number] {
    const least = activeLevel(signal) - 30;
    const all = levels(signal);
    const first = all.findIndex((level) => level > least);
    const last = all.findLastIndex((level) => level > least);
    return [Math.max(0, first) * frame, Math.min(signal.length, (last + 1) * frame)];
}

export function toPcm(signal: Signal): Int16Array<ArrayBuffer> {
    return Int16Array.from(signal, (sample) => Math.round(Math.max(-1, Math.min(1, sample)) * 32767));
}

export function fromPcm(samples: Int16Array): Signal {
    return Float32Array.from(samples, (sample) => sample / 32767);
}

/** Numbers between 0 and 1 that look random (mulberry32). */
export function randomFrom(seed: number): () => number {
    let state = seed >>> 0;
    return () => {
        state = (state + 0x6d2b79f5) >>> 0;
        let mixedUp = Math.imul(state ^ (state >>> 15), state | 1);
        mixedUp ^= mixedUp + Math.imul(mixedUp ^ (mixedUp >>> 7), mixedUp | 61);
        return ((mixedUp ^ (mixedUp >>> 14)) >>> 0) / 2 ** 32;
    };
}

function white(length: number, seed: number): Signal {
    const random = randomFrom(seed);
    return silence(length).map(() => random() + random() + random() - 1.5);
}

/** Pink noise of 0 dBFS: white noise past three poles and their zeros (P. Kellet's economy filter). */
export function pink(length: number, seed: number): Signal {
    let [low, middle, high] = [0, 0, 0];
    const noise = white(length, seed).map((sample) => {
        low = 0.99765 * low + 0.099046 * sample;
        middle = 0.963 * middle + 0.2965164 * sample;
        high = 0.57 * high + 1.0526913 * sample;
        return low + middle + high + 0.1848 * sample;
    });
    return unit(noise);
}

/** A fan of 0 dBFS: low noise that beats with the blades, and the hum of the motor with its overtones. */
export function fan(length: number, seed: number): Signal {
    let air = 0;
    const noise = unit(white(length, seed).map((sample) => (air += 0.08 * (sample - air))));
    return unit(noise.map((sample, index) => {
        const time = index / rate;
        const blades = 1 + 0.25 * Math.sin(2 * Math.PI * 23 * time) + 0.1 * Math.sin(2 * Math.PI * 0.7 * time);
        const hum = [1, 2, 3, 4].reduce((sum, overtone) => sum + Math.sin(2 * Math.PI * 100 * overtone * time) / overtone, 0);
        return sample * blades + 0.25 * hum;
    }));
}

/** Somebody types: the clicks of keys going down and up, each a burst of a few milliseconds, at irregular moments. The loudest reach 0 dBFS. */
export function typing(length: number, seed: number): Signal {
    const random = randomFrom(seed);
    const keys = silence(length);
    for (let at = rate / 2; at < length; at += rate * (0.06 + 0.3 * random() ** 2 + (random() < 0.05 ? 1.5 : 0))) {
        for (const [delay, gain] of [[0, 0.4 + 0.6 * random()], [0.05 + 0.04 * random(), 0.3]] as const) {
            const pitch = 1200 + 2500 * random();
            for (let index = 0; index < rate * 0.02; index++) {
                const place = Math.round(at + delay * rate) + index;
                const body = 0.5 * Math.sin((2 * Math.PI * pitch * index) / rate) + 0.5 * (2 * random() - 1);
                if (place < length) keys[place]! += gain * body * Math.exp(-index / (rate * 0.003));
            }
        }
    }
    return keys.map((sample) => Math.max(-1, Math.min(1, sample)));
}

/** Brought to a mean power of 0 dBFS. */
function unit(signal: Signal): Signal {
    return scaled(signal, -decibels(signal.reduce((sum, sample) => sum + sample * sample, 0) / signal.length));
}
