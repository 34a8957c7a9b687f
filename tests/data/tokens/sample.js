// A small JavaScript sample
/* block
   comment */
import { thing } from "./module.js";

class Counter extends Base {
  #count = 0;
  increment(step = 1_000) {
    this.#count += step * 0x10;
    const re = /ab+c/gi;
    const text = `template ${this.#count}
still template`;
    return re.test('it\'s') ? null : undefined;
  }
}
const ratio = a / b / 2;
