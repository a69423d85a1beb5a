//! A host of the C interface in Rust: a formula as SVG, in words, and as a number.
//!
//!     rust_api '(2+3)/4' fraction.svg
use std::ffi::CStr;
use std::os::raw::{c_char, c_int, c_void};
use std::ptr::{null, null_mut};

#[repr(C)]
struct Error {
    status: c_int,
    position: usize,
    message: *const c_char,
    excerpt: *const c_char,
}

#[repr(C)]
struct Size {
    width: f64,
    height: f64,
    axis: f64,
    depth: f64,
    em: f64,
}

const SPEECH: c_int = 4;

#[link(name = "mivora-c")]
extern "C" {
    fn mivora_last_error(error: *mut Error) -> c_int;
    fn mivora_free(bytes: *mut c_void);
    fn mivora_formula_from_text(
        text: *const c_char, length: usize, look: *const c_void, formula: *mut *mut c_void,
    ) -> c_int;
    fn mivora_formula_free(formula: *mut c_void);
    fn mivora_formula_size(formula: *mut c_void, paint: *const c_void, size: *mut Size) -> c_int;
    fn mivora_formula_picture(
        formula: *mut c_void, format: *const c_char, paint: *const c_void,
        bytes: *mut *mut c_char, size: *mut usize, measured: *mut Size,
    ) -> c_int;
    fn mivora_formula_write(
        formula: *mut c_void, form: c_int, text: *mut *mut c_char, length: *mut usize,
    ) -> c_int;
    fn mivora_calculate(text: *const c_char, length: usize, value: *mut f64) -> c_int;
}

/// What the library says of the call that just gave this status.
fn check(status: c_int) -> Result<(), String> {
    if status == 0 {
        return Ok(());
    }
    let mut error = Error { status: 0, position: 0, message: null(), excerpt: null() };
    unsafe {
        mivora_last_error(&mut error);
        Err(CStr::from_ptr(error.message).to_string_lossy().into_owned())
    }
}

struct Formula(*mut c_void);

impl Formula {
    fn new(text: &str) -> Result<Formula, String> {
        let mut handle = null_mut();
        check(unsafe {
            mivora_formula_from_text(text.as_ptr().cast(), text.len(), null(), &mut handle)
        })?;
        Ok(Formula(handle))
    }

    fn size(&self) -> Result<Size, String> {
        let mut size = Size { width: 0.0, height: 0.0, axis: 0.0, depth: 0.0, em: 0.0 };
        check(unsafe { mivora_formula_size(self.0, null(), &mut size) })?;
        Ok(size)
    }

    fn svg(&self) -> Result<Vec<u8>, String> {
        let format = b"svg\0".as_ptr().cast();
        take(|bytes, size| unsafe {
            mivora_formula_picture(self.0, format, null(), bytes, size, null_mut())
        })
    }

    fn words(&self) -> Result<String, String> {
        let words = take(|text, length| unsafe { mivora_formula_write(self.0, SPEECH, text, length) })?;
        String::from_utf8(words).map_err(|error| error.to_string())
    }
}

impl Drop for Formula {
    fn drop(&mut self) {
        unsafe { mivora_formula_free(self.0) }
    }
}

/// Bytes that a call gives, as a vector of our own.
fn take(call: impl Fn(*mut *mut c_char, *mut usize) -> c_int) -> Result<Vec<u8>, String> {
    let (mut bytes, mut size) = (null_mut::<c_char>(), 0);
    check(call(&mut bytes, &mut size))?;
    let copy = unsafe { std::slice::from_raw_parts(bytes.cast(), size).to_vec() };
    unsafe { mivora_free(bytes.cast()) };
    Ok(copy)
}

fn run(text: &str, path: &str) -> Result<(), String> {
    let formula = Formula::new(text)?;
    std::fs::write(path, formula.svg()?).map_err(|error| format!("{path}: {error}"))?;
    let size = formula.size()?;
    println!("{} x {} pixels, {} below the line", size.width, size.height, size.depth);
    println!("{}", formula.words()?);
    let mut value = 0.0;
    match check(unsafe { mivora_calculate(text.as_ptr().cast(), text.len(), &mut value) }) {
        Ok(()) => println!("= {value}"),
        Err(message) => println!("no value: {message}"),
    }
    Ok(())
}

fn main() {
    let words: Vec<String> = std::env::args().collect();
    if words.len() != 3 {
        eprintln!("usage: rust_api FORMULA FILE.svg");
        std::process::exit(2);
    }
    if let Err(message) = run(&words[1], &words[2]) {
        eprintln!("{}: {message}", words[1]);
        std::process::exit(1);
    }
}
